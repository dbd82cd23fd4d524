import { confirm } from "../kit/questions";
import { toast } from "../kit/toasts";
import { configurationTexts as texts } from "../texts/configuration";
import { ChangeList } from "./ChangeList";
import { type SaveReport, save } from "./save";
import { changes, load } from "./store";

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
    body: <ChangeList changes={wanted} />,
    action: texts.saveAction,
  });
  return agreed ? save(wanted) : undefined;
}
