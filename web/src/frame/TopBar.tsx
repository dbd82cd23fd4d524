import { openLogin, role } from "../data/session";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/frame";
import { BatteryChip, BumperChip, EveryoneIsAdminChip, LinkChip } from "./StatusChips";
import { StopButton } from "./StopButton";

export function TopBar() {
  const name = role.value === undefined ? texts.roleUnknown : texts.roleNames[role.value];
  return (
    <header class="top">
      <div class="who">
        <a class="host" href="#/overview">
          {location.hostname}
        </a>
        <button
          type="button"
          class="button role"
          title={texts.roleTitle}
          onClick={() => openLogin()}
        >
          <Icon name="user" />
          {name}
        </button>
      </div>
      <section class="chips" aria-label={texts.status}>
        <LinkChip />
        <BatteryChip />
        <BumperChip />
        <EveryoneIsAdminChip />
      </section>
      <StopButton />
    </header>
  );
}
