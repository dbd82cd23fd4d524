import { useState } from "preact/hooks";
import { Button } from "../kit/Button";
import { Toggle } from "../kit/Toggle";
import * as texts from "../texts/services";
import { StateChip } from "./StateChip";
import { StatusDrawer } from "./StatusDrawer";
import { busyServices, change } from "./serviceActions";
import { isLocked, isUp } from "./serviceState";
import { isTemplate, type Service, type ServiceRow } from "./tree";

export interface Rights {
  readonly mayRun: boolean;
  readonly mayActivate: boolean;
}

function RunButtons({ service, mayRun }: { service: Service; mayRun: boolean }) {
  const busy = busyServices.value.get(service.name);
  const all = isTemplate(service.name);
  const order = (action: "start" | "stop", label: string) => (
    <Button
      icon={action === "start" ? "play" : "square"}
      busy={busy === action}
      disabled={!mayRun || (busy !== undefined && busy !== action)}
      aria-label={texts.of(label, service.name)}
      onClick={() => void change(action, service)}
    >
      {label}
    </Button>
  );
  if (all) {
    return (
      <>
        {!isLocked(service) && order("start", texts.startAll)}
        {order("stop", texts.stopAll)}
      </>
    );
  }
  // While an order is under way its button stays, so that it keeps the focus.
  const action = busy === "start" || busy === "stop" ? busy : isUp(service) ? "stop" : "start";
  if (action === "start" && isLocked(service)) {
    return null;
  }
  return order(action, action === "stop" ? texts.stop : texts.start);
}

function BootSwitch({ service, mayActivate }: { service: Service; mayActivate: boolean }) {
  const busy = busyServices.value.has(service.name);
  return service.activated === undefined ? null : (
    <span title={mayActivate ? undefined : texts.bootNeedsAdmin}>
      <Toggle
        label={texts.boot}
        ariaLabel={texts.bootOf(service.name)}
        checked={service.activated}
        disabled={!mayActivate || busy}
        onChange={(on) => void change(on ? "activate" : "deactivate", service)}
      />
    </span>
  );
}

export function ServiceItem({ row, rights }: { row: ServiceRow; rights: Rights }) {
  const [open, setOpen] = useState(false);
  const { service, indented } = row;
  return (
    <li class={indented ? "instance" : undefined}>
      <h3>{service.name}</h3>
      <StateChip service={service} />
      {!isTemplate(service.name) && (
        <Button
          class="bare"
          icon={open ? "up" : "down"}
          aria-expanded={open}
          aria-label={texts.statusOf(service.name)}
          onClick={() => setOpen(!open)}
        >
          {texts.status}
        </Button>
      )}
      <div class="actions">
        <BootSwitch service={service} mayActivate={rights.mayActivate} />
        <RunButtons service={service} mayRun={rights.mayRun} />
      </div>
      {open && <StatusDrawer name={service.name} trigger={`${service.active} ${service.sub}`} />}
    </li>
  );
}
