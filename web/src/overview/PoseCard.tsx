import { odometry } from "../data/resources";
import { useResource } from "../data/useResource";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import { Chart } from "../kit/Chart";
import { PoseTrace } from "../robotView/PoseTrace";
import { angleUnit } from "../settings/general";
import * as texts from "../texts/overview";
import { formatAngle, headingOf } from "./angles";
import { speedHistory } from "./histories";
import { Readings } from "./Readings";

const series = [
  { label: texts.speeds.vx },
  { label: texts.speeds.vy },
  { label: texts.speeds.omega },
];

function Numbers() {
  const reading = odometry.value.value;
  const unit = angleUnit.value;
  return reading === undefined ? null : (
    <Readings
      stale={odometry.freshness.value !== "fresh"}
      rows={[
        [texts.x, texts.metres(reading.x)],
        [texts.y, texts.metres(reading.y)],
        [texts.heading, formatAngle(headingOf(reading.phi), unit)],
        [texts.speed, texts.metresPerSecond(Math.hypot(reading.vx, reading.vy))],
        [texts.turning, formatAngle(reading.omega, unit) + texts.perSecond],
      ]}
    />
  );
}

export function PoseCard() {
  useResource(odometry);
  return (
    <Card title={texts.pose} aside={<Age resource={odometry} />}>
      <Numbers />
      <Chart series={series} points={speedHistory} seconds={30} />
      <h3>{texts.way}</h3>
      <PoseTrace />
    </Card>
  );
}
