import { openLogin } from "../data/session";
import { Button } from "../kit/Button";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/frame";
import type { Page } from "./pages";

export function LockedPage({ page }: { page: Page }) {
  const body = texts.lockedBody(page.needs);
  return (
    <div class="empty">
      <Icon name="lock" />
      <h2>{texts.lockedTitle(page.title, page.needs)}</h2>
      <p>{body}</p>
      <Button kind="primary" icon="user" onClick={() => openLogin(body, page.needs)}>
        {texts.logIn}
      </Button>
    </div>
  );
}
