import { setting } from "../settings/settings";
import { numberWithin } from "../settings/validators";
import { asSensorGeometry, defaultSensorGeometry } from "./sensorGeometry";

export const sensorGeometry = setting(
  "robot.sensorGeometry",
  defaultSensorGeometry,
  asSensorGeometry,
);

/** How many metres around the robot the view shows. */
export const viewReach = setting<number>("robot.viewReach", 3, numberWithin(1, 20));

export const viewReaches = [1, 2, 3, 4, 6, 10] as const;
