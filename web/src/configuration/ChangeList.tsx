import { DataTable } from "../kit/DataTable";
import { configurationTexts as texts } from "../texts/configuration";
import type { ConfigChange } from "./changes";
import { guardedLabel, placeOf } from "./labels";

const columns = [
  { title: texts.setting, cell: ({ leaf }: ConfigChange) => placeOf(leaf) },
  { title: texts.from, cell: ({ leaf }: ConfigChange) => guardedLabel(leaf, leaf.value) },
  { title: texts.to, cell: ({ leaf, value }: ConfigChange) => guardedLabel(leaf, value) },
];

/** The changes, old beside new, before they are saved. */
export function ChangeList({ changes }: { changes: readonly ConfigChange[] }) {
  const opened = changes.filter(({ leaf, value }) => leaf.group === "Login" && value === "");
  return (
    <>
      <p>{texts.saveBody}</p>
      <DataTable
        class="blocks"
        caption={texts.saveTitle}
        columns={columns}
        rows={changes}
        keyOf={({ leaf }) => leaf.key}
      />
      {opened.map(({ leaf }) => (
        <p key={leaf.key} class="error">
          {texts.openDoor(leaf.name)}
        </p>
      ))}
    </>
  );
}
