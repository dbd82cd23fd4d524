import { setting } from "./settings";
import { oneOf } from "./validators";

export type Theme = "auto" | "light" | "dark";
export type AngleUnit = "degrees" | "radians";

export const theme = setting<Theme>("theme", "auto", oneOf("auto", "light", "dark"));
export const angleUnit = setting<AngleUnit>("angleUnit", "degrees", oneOf("degrees", "radians"));

/** What the periods of all polling are multiplied with. */
export const refreshFactor = setting<number>("refreshFactor", 1, oneOf(0.5, 1, 2));
