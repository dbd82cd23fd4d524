export const seconds = (count: number) => `${count} s`;
export const minutes = (count: number) => `${count} min`;
export const hours = (count: number) => `${count} h`;
export const old = (age: string) => `${age} old`;
export const noData = "no data yet";
export const now = "now";
export const chart = (labels: string) => `Chart over time: ${labels}`;
export const close = "Close";
export const cancel = "Cancel";
