import { linkState } from "../data/link";
import { canOperate } from "../data/session";
import { useResource } from "../data/useResource";
import * as texts from "../texts/programs";
import { LoginHint } from "./LoginHint";
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
      <LoginHint>{texts.needsOperator}</LoginHint>
      <div class="stack">
        <ProgramCard enabled={enabled} />
        <OutputCard />
      </div>
      <div class="stack">
        <UploadCard enabled={enabled} />
        <VariablesCard />
      </div>
    </div>
  );
}
