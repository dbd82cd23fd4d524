export const settings = "Settings of this browser";
export const settingsHint = "Kept in this browser alone, for this address of the robot.";
export const theme = "Colours";
export const themes = { auto: "As the system", light: "Light", dark: "Dark" };
export const angles = "Angles in";
export const angleUnits = { degrees: "Degrees", radians: "Radians" };
export const refresh = "How often values are renewed";
export const refreshHint = "Seldom is easier on a slow link.";
export const refreshRates = {
  "0.5": "Often (twice as often)",
  "1": "Normal",
  "2": "Seldom (half as often)",
};
export const geometry = "Where the sensors sit";
export const driveHint = "Speeds, sticks, keys and the picture are set on the Drive page.";
export const save = "Save settings as a file";
export const load = "Load from a file…";
export const reset = "Reset all";
export const resetTitle = "Reset all settings?";
export const resetBody = "All settings of this browser go back to what they were at first.";
export const loaded = (count: number) => `Settings taken over: ${count}.`;
export const skipped = (names: string) => `Not understood, left out: ${names}`;
export const unreadable = "This file holds no settings.";
export const fileName = (host: string) => `${host}-settings.json`;
export const versions = "Versions";
export const thisInterface = "This interface";
export const browser = "Browser";
export const chargerVersion = (number: number) => `Charger ${number}`;
export const daemonHint = "The daemon does not tell its own version; its log does at its start.";
export const gamepad = "Gamepads";
export const available = "available";
export const missing = "not available over this connection";
export const channel = "Agreement between tabs";
export const licences = "Licences";
export const licencesIntro = "This interface contains:";
export const licencesFull = "The full texts stand at the head of its script.";
export const limits =
  "Stopping here is a software stop. It is no safety device: use the robot's emergency stop where people may be hurt. When the daemon itself dies while the robot drives, only the robot's own limits stop it.";
