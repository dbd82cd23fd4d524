// First, so that what the rooms say of their own counts more.
import "./kit/kit.css";
import "./frame/frame.css";
import { effect } from "@preact/signals";
import { render } from "preact";
import { startClock } from "./data/clock";
import { shareDriving } from "./data/drivingTabs";
import { startHeartbeat } from "./data/heartbeat";
import { currentSid } from "./data/sid";
import { App } from "./frame/App";
import { Framed } from "./frame/Framed";
import { keepFocus } from "./frame/focusKeeper";
import { startIdleLogout } from "./frame/idleLogout";
import { pages } from "./frame/pages";
import { startRouter } from "./frame/router";
import { DialogStopButton } from "./frame/StopButton";
import { startShortcuts } from "./frame/shortcuts";
import { announceStops } from "./frame/stopAll";
import { dialogCompanion } from "./kit/Dialog";
import { shownTheme } from "./kit/themes";
import { followOtherTabs } from "./settings/settings";
import * as texts from "./texts/frame";

const root = document.getElementById("app");

function start(element: HTMLElement): void {
  // First of all, so that a session in the address is taken out of it at once.
  currentSid();
  effect(() => {
    document.documentElement.dataset.theme = shownTheme.value;
  });
  if (window.top !== window.self) {
    render(<Framed />, element);
    return;
  }
  dialogCompanion.value = DialogStopButton;
  startRouter(pages[0]?.path ?? "");
  startClock();
  startHeartbeat();
  startShortcuts();
  keepFocus(element);
  announceStops();
  startIdleLogout();
  followOtherTabs();
  shareDriving(texts.drivingElsewhere);
  render(<App />, element);
}

if (root !== null) {
  start(root);
}
