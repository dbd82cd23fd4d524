import { signal } from "@preact/signals";
import { write } from "../data/requests";
import { confirm } from "../kit/questions";
import { toast } from "../kit/toasts";
import * as texts from "../texts/services";
import { changeService, type ServiceAction } from "./changeService";
import { services, servicesTimeoutMs } from "./resources";
import { isOwnUnit } from "./serviceState";
import { decodeServices, type Service } from "./tree";

/** What is under way, by the name of the service. */
export const busyServices = signal<ReadonlyMap<string, ServiceAction>>(new Map());

const paths: Readonly<Record<ServiceAction, string>> = {
  start: "/data/startService",
  stop: "/data/stopService",
  activate: "/data/activateService",
  deactivate: "/data/deactivateService",
};

const deps = {
  readServices: async () => {
    const outcome = await services.refresh();
    return outcome.state === "answer" ? decodeServices(outcome.value) : undefined;
  },
  send: (action: ServiceAction, name: string) =>
    write(paths[action], name, { bare: true, timeoutMs: servicesTimeoutMs }),
  sleep: (milliseconds: number) =>
    new Promise<void>((resolve) => setTimeout(resolve, milliseconds)),
};

async function agreed(action: ServiceAction, service: Service): Promise<boolean> {
  if (action === "stop" && isOwnUnit(service)) {
    const [title, danger] = [texts.stopTitle(service.name), true];
    return (
      (await confirm({ title, body: texts.ownBody, action: texts.ownAction, danger })) &&
      confirm({
        title: texts.ownAgainTitle,
        body: texts.ownAgainBody,
        action: texts.ownAction,
        danger,
      })
    );
  }
  return (
    action !== "deactivate" ||
    confirm({
      title: texts.offTitle(service.name),
      body: texts.offBody,
      action: texts.offAction,
      danger: true,
    })
  );
}

export async function change(action: ServiceAction, service: Service): Promise<void> {
  const { name } = service;
  if (busyServices.peek().has(name) || !(await agreed(action, service))) {
    return;
  }
  busyServices.value = new Map(busyServices.peek()).set(name, action);
  const result = await changeService(action, name, deps);
  const rest = new Map(busyServices.peek());
  rest.delete(name);
  busyServices.value = rest;
  const kind = result === "done" ? "success" : result === "changing" ? "info" : "error";
  toast(texts.changeTexts[result](action, name), { kind });
}
