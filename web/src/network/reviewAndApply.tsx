import { ChangeTable } from "../configuration/ChangeTable";
import { confirm } from "../kit/questions";
import { toast } from "../kit/toasts";
import * as texts from "../texts/network";
import { apply } from "./activeFlow";
import { type Effect, effectOf, originAt } from "./carrier";
import type { Change } from "./diff";
import { guardedLabel } from "./labels";
import type { NetworkForm } from "./NetworkForm";

export function rowOf({ device, leafName, from, to }: Change) {
  return {
    name: `${device}: ${texts.leaf(leafName)}`,
    from: guardedLabel(leafName, from),
    to: guardedLabel(leafName, to),
  };
}

function Review({ form, effect }: { form: NetworkForm; effect: Effect }) {
  const link = effect.kind === "moves" ? originAt(effect.address, location) : undefined;
  const isHarmless = effect.kind === "untouched" || effect.kind === "unknown";
  return (
    <>
      <ChangeTable rows={form.changes.peek().map(rowOf)} />
      {form.findings.peek().warnings.map(({ key, problem }) => (
        <p key={key}>
          {key.split("/")[0]}: {texts.problems[problem]}
        </p>
      ))}
      <p class={isHarmless ? "" : "error"}>
        {texts.effectOn(effect)} {link && <a href={link}>{link}</a>}
      </p>
    </>
  );
}

/** Asks with what is in force at this moment, and then sends the settings. */
export async function reviewAndApply(form: NetworkForm): Promise<void> {
  await form.load();
  if (form.changes.peek().length === 0) {
    toast(texts.nothingLeft);
    return;
  }
  const tree = form.tree.peek() ?? [];
  const effect = effectOf(tree, form.base.peek(), form.sent.peek(), location.hostname);
  const agreed = await confirm({
    title: texts.reviewTitle,
    body: <Review form={form} effect={effect} />,
    action: texts.apply,
    danger: effect.kind === "moves" || effect.kind === "leaves",
  });
  if (agreed) {
    await apply(form, effect);
  }
}
