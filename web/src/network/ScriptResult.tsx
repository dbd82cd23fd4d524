import { useResource } from "../data/useResource";
import { Button } from "../kit/Button";
import { Disclosure } from "../kit/Disclosure";
import * as texts from "../texts/network";
import { keepLast } from "./activeFlow";
import type { NetworkForm } from "./NetworkForm";
import { outcomeOf } from "./outcome";
import { results } from "./resources";

/** What the script of the last change has printed, and the way to keep what it put on trial. */
export function ScriptResult({ form, enabled }: { form: NetworkForm; enabled: boolean }) {
  const { value } = useResource(results[form.network]);
  const text = value.value ?? "";
  const mayKeep = outcomeOf(text)?.kind === "trial" && enabled && form.tree.value !== undefined;
  return (
    <>
      {mayKeep && (
        <div class="trial row">
          <p>{texts.keepLast}</p>
          <Button onClick={() => void keepLast(form)}>{texts.keep}</Button>
        </div>
      )}
      <Disclosure title={texts.result}>
        {text === "" ? <p class="hint">{texts.noResult}</p> : <pre>{text}</pre>}
      </Disclosure>
    </>
  );
}
