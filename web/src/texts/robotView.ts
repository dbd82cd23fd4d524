import { formatNumber } from "../kit/format";
import type { Bearing } from "../robotView/nearestEcho";

function bearingText(bearing: Bearing): string {
  switch (bearing.side) {
    case "ahead":
      return "straight ahead";
    case "behind":
      return "right behind";
    default:
      return `${bearing.degrees}° to the ${bearing.side}`;
  }
}

export const nearest = (distance: number, bearing: Bearing) =>
  `Nearest obstacle: ${formatNumber(distance)} m from the hull, ${bearingText(bearing)}`;
export const nothingNear = "No obstacle in sight";
export const noReadings = "No readings of the scanner and the distance sensors yet";
export const oldReadings = "The readings are old";
export const touching = "The robot touches something";
export const pictureLabel = (summary: string) =>
  `The robot seen from above, ahead is up. ${summary}`;
export const scaleLabel = (length: number) => `${length} m`;
export const ahead = "ahead";
export const reach = "Shown around the robot";
export const metres = (length: number) => `${length} m`;
export const trace = {
  label: (metres: number) =>
    `The way of the last 30 seconds on a map, ${formatNumber(metres, 1)} m long`,
  none: "No position yet",
};
export const geometry = {
  intro: "The robot doesn't tell how its sensors sit. What you set here counts for this browser.",
  startAngleDeg: "First distance sensor, degrees to the left of ahead",
  direction: "The other sensors follow to the",
  left: "left",
  right: "right",
  unit: "Distances are told in",
  metres: "metres",
  centimetres: "centimetres",
  millimetres: "millimetres",
  sensorRange: "A distance sensor sees nothing from, in m",
  robotRadius: "Radius of the robot, in m",
  scannerAngleDeg: "Scanner turned, degrees to the left",
  outOfRange: (least: number, most: number) => `A number from ${least} to ${most}, please`,
  reset: "Back to the first values",
};
