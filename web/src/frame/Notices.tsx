import { lostSince } from "../data/link";
import { pollingPaused } from "../data/scheduler";
import { acknowledgeEnd, openLogin, sessionEnded } from "../data/session";
import { Button } from "../kit/Button";
import { formatTime } from "../kit/format";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/frame";

/** What holds for every page just now, one below the other, across the whole width. */
export function Notices() {
  const since = lostSince.value;
  const paused = pollingPaused.value;
  return (
    <>
      <div class="notices" role="alert">
        {since !== undefined && (
          <p class="notice lost">
            <Icon name="unlink" />
            <span>{texts.lostTitle(formatTime(since))}</span>
          </p>
        )}
      </div>
      <div class="notices" role="status">
        {paused !== undefined && (
          <p class="notice">
            <Icon name="pause" />
            <span>{paused}</span>
          </p>
        )}
        {sessionEnded.value && (
          <p class="notice">
            <Icon name="lock" />
            <span>{texts.ended}</span>
            <Button onClick={() => openLogin()}>{texts.logIn}</Button>
            <Button onClick={acknowledgeEnd}>{texts.stayGuest}</Button>
          </p>
        )}
      </div>
    </>
  );
}
