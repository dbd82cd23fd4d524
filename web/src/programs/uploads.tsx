import { signal } from "@preact/signals";
import { backgroundQueue } from "../data/scheduler";
import { choose } from "../kit/questions";
import { Toggle } from "../kit/Toggle";
import * as texts from "../texts/programs";
import { readPrograms } from "./programActions";
import { fileNameOf } from "./programList";
import { programs } from "./resources";
import { readBase64, sendUpload } from "./sendUpload";
import type { OverwriteDecision, UploadDeps } from "./uploadItem";
import { createUploadQueue } from "./uploadQueue";

const forAll = signal(false);

function ForAll({ remaining }: { remaining: number }) {
  return (
    <Toggle
      label={texts.overwriteForAll(remaining)}
      checked={forAll.value}
      onChange={(checked) => {
        forAll.value = checked;
      }}
    />
  );
}

const askOverwrite: UploadDeps<File>["askOverwrite"] = async (name, remaining) => {
  forAll.value = false;
  const label = texts.overwrite;
  const decision = await choose<OverwriteDecision>({
    title: texts.overwriteTitle(name),
    body: remaining > 0 && <ForAll remaining={remaining} />,
    choices: [
      { label: label.skip, value: "skip" },
      { label: label.rename, value: "rename" },
      { label: label.replace, value: "replace", kind: "primary" },
    ],
  });
  return decision && { decision, forAll: forAll.peek() };
};

/** Outlives the page: uploads go on while something else is looked at. */
export const uploads = createUploadQueue<File>({
  listNames: async () => {
    const list = await readPrograms();
    void programs.refresh();
    return list && new Set(list.map(fileNameOf));
  },
  readBase64,
  send: (...upload) => backgroundQueue.run(() => sendUpload(...upload), "front"),
  askOverwrite,
});
