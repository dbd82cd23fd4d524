import { spawnSync } from "node:child_process";
import { readdirSync, rmSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

const root = path.dirname(fileURLToPath(import.meta.url));
// Arguments name what is run: "drive" runs tests/drive, none runs everything.
const wanted = process.argv.slice(2);
const outdir = path.join(root, "build", `tests-${process.pid}`);

const files = readdirSync(path.join(root, "tests"), { recursive: true, withFileTypes: true })
  .filter((entry) => entry.isFile() && entry.name.endsWith(".test.ts"))
  .map((entry) => path.join(entry.parentPath ?? entry.path, entry.name))
  .filter((file) => wanted.length === 0 || wanted.some((word) => file.includes(word)));

try {
  await build({
    entryPoints: files,
    outbase: path.join(root, "tests"),
    outdir,
    outExtension: { ".js": ".mjs" },
    bundle: true,
    platform: "node",
    format: "esm",
    target: "node18",
    jsx: "automatic",
    jsxImportSource: "preact",
    loader: { ".css": "empty" },
    define: { BUILD: '{"version":"0","parts":[]}' },
    // Browsers have it everywhere, Node 18 only on request.
    banner: { js: 'import { webcrypto } from "node:crypto"; globalThis.crypto ??= webcrypto;' },
    sourcemap: "inline",
    logLevel: "warning",
  });
  const built = files.map((file) =>
    path.join(outdir, path.relative(path.join(root, "tests"), file).replace(/\.ts$/, ".mjs")),
  );
  const { status } = spawnSync(process.execPath, ["--enable-source-maps", "--test", ...built], {
    stdio: "inherit",
  });
  process.exitCode = status ?? 1;
} finally {
  rmSync(outdir, { recursive: true, force: true });
}
