import { useSignal } from "@preact/signals";
import { reaches, role } from "../data/session";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/frame";
import { type Page, pages } from "./pages";
import { hashOf } from "./route";
import { shownPath } from "./router";

function NavLink({ page, onFollow }: { page: Page; onFollow: () => void }) {
  const isLocked = role.value !== undefined && !reaches(role.value, page.needs);
  return (
    <a
      href={hashOf(page.path)}
      aria-current={page.path === shownPath.value ? "page" : undefined}
      onClick={onFollow}
    >
      <Icon name={page.icon} />
      <span>{page.title}</span>
      {isLocked && (
        <span class="locked" title={texts.needs(page.needs)}>
          <Icon name="lock" />
          <span class="unseen">, {texts.needs(page.needs)}</span>
        </span>
      )}
    </a>
  );
}

/** At the left on a desk; on a phone at the bottom, where the later pages are behind a button. */
export function NavBar() {
  const isOpen = useSignal(false);
  const close = () => {
    isOpen.value = false;
  };
  return (
    <nav class={isOpen.value ? "nav open" : "nav"} aria-label={texts.pages}>
      <ul>
        {pages.map((page) => (
          <li key={page.path}>
            <NavLink page={page} onFollow={close} />
          </li>
        ))}
        <li class="more">
          <button
            type="button"
            aria-expanded={isOpen.value}
            onClick={() => {
              isOpen.value = !isOpen.value;
            }}
          >
            <Icon name="more" />
            <span>{texts.more}</span>
          </button>
        </li>
      </ul>
    </nav>
  );
}
