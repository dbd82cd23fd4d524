import { useEffect, useState } from "preact/hooks";
import { arrayOf } from "../data/decode";
import { read } from "../data/requests";
import { Button } from "../kit/Button";
import { textFields } from "../programs/textFields";
import * as texts from "../texts/services";
import { servicesTimeoutMs } from "./resources";
import { statusPath } from "./tree";

async function askStatus(path: string): Promise<string> {
  const outcome = await read(path, { timeoutMs: servicesTimeoutMs });
  if (outcome.state === "unreachable") {
    return texts.statusUnreachable;
  }
  const lines =
    outcome.state === "answer"
      ? arrayOf(outcome.value, (line) => textFields(line, "text")?.text)
      : undefined;
  return lines?.join("\n") || texts.noStatus;
}

/** Asks anew when `trigger` changes, as it does with the state of the service. */
export function StatusDrawer({ name, trigger }: { name: string; trigger: string }) {
  const path = statusPath(name);
  const [text, setText] = useState(path ? texts.loading : texts.statusImpossible);
  const [round, setRound] = useState(0);
  useEffect(() => {
    let isWanted = true;
    if (path !== undefined) {
      void askStatus(path).then((answer) => isWanted && setText(answer));
    }
    return () => {
      isWanted = false;
    };
  }, [path, round, trigger]);
  return (
    <section class="drawer" aria-label={texts.statusOf(name)}>
      <pre>{text}</pre>
      {path !== undefined && (
        <Button icon="refresh" onClick={() => setRound(round + 1)}>
          {texts.refresh}
        </Button>
      )}
    </section>
  );
}
