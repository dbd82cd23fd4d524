import { useComputed, useSignal } from "@preact/signals";
import { useEffect, useState } from "preact/hooks";
import { linkState } from "../data/link";
import { pollingPaused } from "../data/scheduler";
import { canOperate } from "../data/session";
import { visible } from "../data/visibility";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/drive";
import { CameraFeed } from "./cameraFeed";

const greyAfterMs = 1000;
const ageStepMs = 200;

/** The newest picture of the camera, with its age; grey when it is old. */
export function CameraView() {
  const isWanted = useComputed(
    () =>
      canOperate.value &&
      visible.value &&
      linkState.value === "connected" &&
      pollingPaused.value === undefined,
  ).value;
  const [feed] = useState(() => new CameraFeed());
  const ageMs = useSignal(0);

  useEffect(() => (isWanted ? feed.run() : undefined), [isWanted]);
  useEffect(() => () => feed.dispose(), []);
  useEffect(() => {
    const timer = setInterval(() => {
      const arrivedAt = feed.frame.peek()?.arrivedAt;
      ageMs.value = arrivedAt === undefined ? 0 : performance.now() - arrivedAt;
    }, ageStepMs);
    return () => clearInterval(timer);
  }, []);

  const frame = feed.frame.value;
  const problem = feed.problem.value;
  const isOld = ageMs.value > greyAfterMs;
  return (
    <div class={`camera ${isOld ? "old" : ""}`}>
      {frame && (
        <img
          src={frame.source}
          alt={texts.cameraPicture}
          draggable={false}
          onLoad={() => feed.drawn(true)}
          onError={() => feed.drawn(false)}
        />
      )}
      {frame && (
        <span class="frame-age">
          <Icon name="clock" />
          {texts.frameAge(ageMs.value / 1000)}
        </span>
      )}
      {problem && (!frame || isOld) && (
        <p class="problem">
          <Icon name="camera" />
          {texts.frameProblems[problem]}
        </p>
      )}
    </div>
  );
}
