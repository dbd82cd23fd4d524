import { confirm } from "../kit/questions";
import { toast } from "../kit/toasts";
import * as texts from "../texts/configuration";
import { ChangeTable } from "./ChangeTable";
import type { ConfigChange } from "./changes";
import { guardedLabel, placeOf } from "./labels";
import { type SaveReport, save } from "./save";
import { changes, load } from "./store";

function Review({ wanted }: { wanted: readonly ConfigChange[] }) {
  const rows = wanted.map(({ leaf, value }) => ({
    name: placeOf(leaf),
    from: guardedLabel(leaf, leaf.value),
    to: guardedLabel(leaf, value),
  }));
  const opened = wanted.filter(({ leaf, value }) => leaf.group === "Login" && value === "");
  return (
    <>
      <ChangeTable rows={rows} />
      {opened.map(({ leaf }) => (
        <p key={leaf.key} class="error">
          {texts.openDoor(leaf.name)}
        </p>
      ))}
    </>
  );
}

/** Asks with what the files hold at this moment: somebody else may have changed them. */
export async function reviewAndSave(): Promise<SaveReport | undefined> {
  await load();
  const wanted = changes.peek();
  if (wanted.length === 0) {
    toast(texts.nothingLeft);
    return undefined;
  }
  const agreed = await confirm({
    title: texts.saveTitle,
    body: <Review wanted={wanted} />,
    action: texts.saveAction,
  });
  return agreed ? save(wanted) : undefined;
}
