import { type ConfigFile, decodeConfiguration } from "../../src/configuration/tree";

export const lights = "/etc/veltrano/lights.conf";

function leaf(group: string, name: string, value: string, params?: string[]) {
  const type = params === undefined ? "input" : "select";
  return { id: 1, file: lights, group, name, value, type, ...(params && { params }) };
}

export const sampleJson = [
  {
    name: lights,
    _children: [
      leaf("", "owner", "workshop"),
      { name: "Horn", _children: [leaf("Horn", "volume", "40"), leaf("Horn", "warning", "", [])] },
      {
        name: "Lamps",
        _children: [
          leaf("Lamps", "brightness", "60", ["25", "50", "75"]),
          leaf("Lamps", "password", "hidden"),
        ],
      },
    ],
  },
];

export function sample(): ConfigFile[] {
  return decodeConfiguration(sampleJson) ?? [];
}

/** The sample with other values, as a later reading would give it. */
export function reread(values: Record<string, string>): ConfigFile[] {
  return sample().map((file) => ({
    ...file,
    groups: file.groups.map((group) => ({
      ...group,
      leaves: group.leaves.map((each) => ({ ...each, value: values[each.name] ?? each.value })),
    })),
  }));
}
