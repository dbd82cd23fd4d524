import { Button } from "../kit/Button";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/programs";
import { busyFile, remove, start, stop } from "./programActions";
import { downloadAddress, fileNameOf, isDownloadOnly, type Program } from "./programList";

interface ButtonsProps {
  program: Program;
  enabled: boolean;
  onRename: () => void;
}

export function ProgramButtons({ program, enabled, onRename }: ButtonsProps) {
  const file = fileNameOf(program);
  const busy = busyFile.value === file;
  const locked = !enabled || (busyFile.value !== undefined && !busy);
  const address = downloadAddress(program);
  const reason = program.running ? texts.whileRunning : undefined;
  return (
    <div class="actions">
      {!isDownloadOnly(program) && (
        <>
          <Button
            class="toggle-run"
            icon={program.running ? "square" : "play"}
            busy={busy}
            disabled={locked}
            aria-label={texts.of(program.running ? texts.stop : texts.run, file)}
            onClick={() => void (program.running ? stop(program) : start(program))}
          >
            {program.running ? texts.stop : texts.run}
          </Button>
          <Button
            class="bare"
            icon="edit"
            title={reason ?? texts.rename}
            aria-label={texts.of(texts.rename, file)}
            disabled={locked || busy || program.running}
            onClick={onRename}
          />
          <Button
            class="bare"
            icon="trash"
            title={reason ?? texts.remove}
            aria-label={texts.of(texts.remove, file)}
            disabled={locked || busy || program.running}
            onClick={() => void remove(program)}
          />
        </>
      )}
      {address !== undefined && (
        <a
          class="button plain bare"
          href={address}
          download={file}
          title={texts.download}
          aria-label={texts.of(texts.download, file)}
        >
          <Icon name="download" />
        </a>
      )}
    </div>
  );
}
