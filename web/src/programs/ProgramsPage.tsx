import { linkState } from "../data/link";
import { canOperate, openLogin } from "../data/session";
import { useResource } from "../data/useResource";
import { Button } from "../kit/Button";
import { programsTexts as texts } from "../texts/programs";
import { OutputCard } from "./OutputCard";
import { ProgramCard } from "./ProgramCard";
import "./programs.css";
import { output, programs, variables } from "./resources";
import { UploadCard } from "./UploadCard";
import { VariablesCard } from "./VariablesCard";

export function ProgramsPage() {
  useResource(programs);
  useResource(output);
  useResource(variables);
  const enabled = canOperate.value && linkState.value === "connected";
  return (
    <div class="programs">
      <div class="stack">
        {!canOperate.value && (
          <p class="row">
            {texts.needsOperator}
            <Button icon="user" onClick={() => openLogin(texts.needsOperator)}>
              {texts.logIn}
            </Button>
          </p>
        )}
        <ProgramCard enabled={enabled} />
        <UploadCard enabled={enabled} />
      </div>
      <div class="stack">
        <OutputCard />
        <VariablesCard />
      </div>
    </div>
  );
}
