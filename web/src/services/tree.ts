import { arrayOf, asString, field } from "../data/decode";
import { textFields } from "../programs/textFields";

/** A systemd unit as the daemon tells it; the states are empty where systemd doesn't know it. */
export interface Service {
  readonly name: string;
  readonly load: string;
  readonly active: string;
  readonly sub: string;
  /** Whether it may start; instances of a template share that of their template. */
  readonly activated: boolean | undefined;
}

export interface ServiceGroup {
  readonly name: string;
  readonly services: readonly Service[];
}

function decodeService(json: unknown): Service | undefined {
  const texts = textFields(json, "name", "load", "active", "sub");
  const activation = field(json, "activation");
  return (
    texts && { ...texts, activated: activation === undefined ? undefined : activation === "true" }
  );
}

/** A service that is listed twice in a group stands there once. */
export function decodeServices(json: unknown): ServiceGroup[] | undefined {
  return arrayOf(json, (entry) => {
    const name = asString(field(entry, "name"));
    const services = arrayOf(field(entry, "_children"), decodeService);
    return name === undefined || services === undefined
      ? undefined
      : { name, services: [...new Map(services.map((one) => [one.name, one])).values()] };
  });
}

export function isTemplate(name: string): boolean {
  return name.endsWith("@");
}

export function isInstance(name: string): boolean {
  return name.includes("@") && !isTemplate(name);
}

export function templateOf(name: string): string | undefined {
  return isInstance(name) ? name.slice(0, name.indexOf("@") + 1) : undefined;
}

export function allServices(groups: readonly ServiceGroup[]): Service[] {
  return groups.flatMap((group) => group.services);
}

export function instancesOf(groups: readonly ServiceGroup[], template: string): Service[] {
  return allServices(groups).filter((service) => templateOf(service.name) === template);
}

export interface ServiceRow {
  readonly service: Service;
  /** An instance that stands below its template. */
  readonly indented: boolean;
}

/** Instances stand below their template, wherever the list has them. */
export function rowsOf(group: ServiceGroup): ServiceRow[] {
  const templates = new Set(group.services.map(({ name }) => name).filter(isTemplate));
  const isBelow = ({ name }: Service) => templates.has(templateOf(name) ?? "");
  return group.services
    .filter((service) => !isBelow(service))
    .flatMap((service) => [
      { service, indented: false },
      ...group.services
        .filter((other) => isTemplate(service.name) && templateOf(other.name) === service.name)
        .map((other) => ({ service: other, indented: true })),
    ]);
}

/** Groups with the rows whose name or state holds all words; a template stays with its instances. */
export function filtered(groups: readonly ServiceGroup[], words: string): ServiceGroup[] {
  const wanted = words.toLowerCase().split(/\s+/).filter(Boolean);
  const matches = ({ name, active, sub }: Service) =>
    wanted.every((word) => `${name} ${active} ${sub}`.toLowerCase().includes(word));
  return groups
    .map((group) => {
      const found = group.services.filter(matches);
      const templates = new Set(found.map(({ name }) => templateOf(name)));
      const services = group.services.filter(
        (service) => found.includes(service) || templates.has(service.name),
      );
      return { name: group.name, services };
    })
    .filter((group) => group.services.length > 0);
}

/** Undefined for a name that a browser would change on its way: the path is never decoded. */
export function statusPath(name: string): string | undefined {
  return /^[\w:.@~!$&'()*+,;=-]+$/.test(name) && !/^\.{1,2}$/.test(name)
    ? `/data/servicestatus/${name}`
    : undefined;
}
