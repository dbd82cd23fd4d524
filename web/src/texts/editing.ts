export const unsaved = (count: number) =>
  count === 1 ? "1 unsaved change" : `${count} unsaved changes`;
export const invalid = "Some values are not valid yet.";
export const discard = "Discard";
export const changes = "Changes";
export const setting = "Setting";
export const from = "Now";
export const to = "New";
export const hidden = "••••••";
export const show = (name: string) => `Show ${name}`;
export const leaveTitle = "Leave without saving?";
export const leaveAction = "Discard and leave";
export const loading = "Asking the robot…";
export const failed = "The robot did not give its settings.";
export const again = "Try again";
export const close = "Close";
