import { Chip } from "../kit/Chip";
import type { IconName } from "../kit/Icon";
import * as texts from "../texts/services";
import { isLocked, type ServiceTone, toneOf } from "./serviceState";
import { isTemplate, type Service } from "./tree";

const icons: Readonly<Record<ServiceTone, IconName>> = {
  ok: "check",
  warn: "warning",
  bad: "error",
  neutral: "square",
};

function wordsOf(service: Service): string {
  if (service.load === "not-found") {
    return texts.notFound;
  }
  const { active, sub } = service;
  return active === ""
    ? texts.unknown
    : sub === "" || sub === active
      ? active
      : `${active} (${sub})`;
}

export function StateChip({ service }: { service: Service }) {
  if (isTemplate(service.name) && service.active === "") {
    return <span class="hint">{texts.template}</span>;
  }
  const tone = toneOf(service);
  return (
    <span class="row">
      <Chip tone={tone} icon={icons[tone]}>
        {wordsOf(service)}
      </Chip>
      {isLocked(service) && (
        <Chip tone="warn" icon="lock" title={texts.lockedTitle}>
          {texts.locked}
        </Chip>
      )}
    </span>
  );
}
