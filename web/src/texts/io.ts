export const digitalInputs = "Digital inputs";
export const analogInputs = "Analog inputs";
export const outputs = "Digital outputs";
export const relays = "Relays";
export const input = (index: number) => `Input ${index}`;
export const output = (index: number) => `Output ${index}`;
export const relay = (index: number) => `Relay ${index}`;
export const on = "on";
export const off = "off";
export const unknown = "unknown";
export const noInputs = "The robot tells no inputs.";

export const cannotAsk = "The robot can't be asked how its outputs stand.";
export const unknownHint = (count: number) =>
  `Until all ${count} have been set once from here, none of them is known.`;
export const setAll = (count: number) => `Set all ${count}…`;
export const setAllTitle = (what: string) => `${what}: set all at once`;
export const setAllBody = "Each of them is switched as shown here, whatever it is now.";
export const apply = (count: number) => `Set all ${count}`;
export const cancel = "Cancel";
export const lastSet = (when: string) => `Last set here ${when}; others may have changed it.`;
export const forget = "Forget";
export const forgetTitle = "Show them as unknown. Nothing is switched.";
export const needsOperator = "Log in as operator to switch outputs and relays.";
export const refused = "The robot refused it. Is your login still valid?";
export const unreachable = "The robot didn't answer. Nothing is known of these outputs any more.";
