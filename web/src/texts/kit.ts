export const kit = {
  seconds: (count: number) => `${count} s`,
  minutes: (count: number) => `${count} min`,
  hours: (count: number) => `${count} h`,
  old: (age: string) => `${age} old`,
  noData: "no data yet",
  now: "now",
  chart: (labels: string) => `Chart over time: ${labels}`,
  close: "Close",
  cancel: "Cancel",
};
