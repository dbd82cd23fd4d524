import { canOperate, openLogin } from "../data/session";
import { Button } from "../kit/Button";
import * as texts from "../texts/programs";

/** What stands above a page that guests may only look at. */
export function LoginHint({ children: reason }: { children: string }) {
  return canOperate.value ? null : (
    <p class="row">
      {reason}
      <Button icon="user" onClick={() => openLogin(reason)}>
        {texts.logIn}
      </Button>
    </p>
  );
}
