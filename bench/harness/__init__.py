"""What the benchmarks share. The robots and the waiting are those of the end-to-end tests."""

import os
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

if len(sys.argv) > 1:
    os.environ["TESSARAD_BIN_DIR"] = str(Path(sys.argv[1]).resolve())
sys.path.insert(0, str(ROOT / "tests/end_to_end"))
