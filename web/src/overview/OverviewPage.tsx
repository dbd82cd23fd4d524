import { linkState } from "../data/link";
import { odometry } from "../data/resources";
import { pollingPaused } from "../data/scheduler";
import { Card } from "../kit/Card";
import { Icon } from "../kit/Icon";
import { RobotView } from "../robotView/RobotView";
import * as texts from "../texts/overview";
import { BumperCard } from "./BumperCard";
import { ChargerCard } from "./ChargerCard";
import { InputsCard } from "./InputsCard";
import { PoseCard } from "./PoseCard";
import { PowerCard } from "./PowerCard";
import { RecordsCard } from "./RecordsCard";
import { ProgramCard, ServicesCard } from "./WorkCards";
import "./overview.css";

/** The daemon goes on giving its last readings when it has lost the robot: only their number stands. */
function RobotSilent() {
  const isAsked = linkState.value === "connected" && pollingPaused.value === undefined;
  const isSilent = odometry.freshness.value === "stale" && isAsked;
  return (
    <div role="status">
      {isSilent && (
        <p class="lamp warn">
          <Icon name="warning" />
          {texts.silent}
        </p>
      )}
    </div>
  );
}

export function OverviewPage() {
  return (
    <div class="overview">
      <RobotSilent />
      <div class="columns">
        <div class="stack">
          <Card title={texts.around}>
            <RobotView />
          </Card>
          <BumperCard />
          <ProgramCard />
          <InputsCard />
        </div>
        <div class="stack">
          <PoseCard />
          <ServicesCard />
          <RecordsCard />
        </div>
        <div class="stack">
          <PowerCard />
          <ChargerCard />
        </div>
      </div>
    </div>
  );
}
