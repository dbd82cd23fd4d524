import { useEffect, useRef, useState } from "preact/hooks";
import { Button } from "../kit/Button";
import { Card } from "../kit/Card";
import * as texts from "../texts/programs";
import { UploadList } from "./UploadList";
import { uploads } from "./uploads";

/** A file that is dropped beside the field would replace the whole page: all of it takes files. */
function useDropAnywhere(
  onFiles: (files: FileList) => void,
  onOver: (over: boolean) => void,
): void {
  useEffect(() => {
    const abort = new AbortController();
    const listen = (type: "dragover" | "dragleave" | "drop", react: (event: DragEvent) => void) =>
      addEventListener(
        type,
        (event) => {
          event.preventDefault();
          react(event);
        },
        abort,
      );
    listen("dragover", () => onOver(true));
    listen("dragleave", (event) => onOver(event.relatedTarget !== null));
    listen("drop", ({ dataTransfer }) => {
      onOver(false);
      if (dataTransfer) {
        onFiles(dataTransfer.files);
      }
    });
    return () => abort.abort();
  });
}

export function UploadCard({ enabled }: { enabled: boolean }) {
  const picker = useRef<HTMLInputElement>(null);
  const [over, setOver] = useState(false);
  const add = (files: FileList | null) => {
    if (enabled && files) {
      void uploads.add([...files]);
    }
  };
  useDropAnywhere(add, setOver);
  return (
    <Card title={texts.upload}>
      <div class={over && enabled ? "drop over" : "drop"}>
        <p>{texts.drop}</p>
        <Button icon="upload" disabled={!enabled} onClick={() => picker.current?.click()}>
          {texts.pick}
        </Button>
        <p class="hint">{texts.dropHint}</p>
        <input
          ref={picker}
          type="file"
          multiple
          hidden
          aria-label={texts.pick}
          onChange={(event) => {
            add(event.currentTarget.files);
            // The same file may be chosen again.
            event.currentTarget.value = "";
          }}
        />
      </div>
      <UploadList />
    </Card>
  );
}
