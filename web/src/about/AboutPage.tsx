import { charger0, charger1, power } from "../data/resources";
import { useResource } from "../data/useResource";
import { ShortcutList } from "../frame/ShortcutList";
import { Card } from "../kit/Card";
import { SettingsCard } from "../settings/SettingsCard";
import * as texts from "../texts/about";
import * as frame from "../texts/frame";
import "./about.css";

function VersionsCard() {
  useResource(power);
  useResource(charger0);
  useResource(charger1);
  const count = power.value.value?.numChargers ?? 0;
  const chargers = [charger0, charger1].slice(0, Math.max(0, count));
  const ability = (isThere: boolean) => (isThere ? texts.available : texts.missing);
  const rows: readonly (readonly [name: string, value: string])[] = [
    [texts.thisInterface, BUILD.version],
    ...chargers.map(
      (charger, index) =>
        [texts.chargerVersion(index), charger.value.value?.version ?? "–"] as const,
    ),
    [texts.browser, navigator.userAgent],
    [texts.gamepad, ability("getGamepads" in navigator)],
    [texts.channel, ability("BroadcastChannel" in globalThis)],
  ];
  return (
    <Card title={texts.versions}>
      <dl>
        {rows.map(([name, value]) => (
          <div key={name}>
            <dt>{name}</dt>
            <dd>{value}</dd>
          </div>
        ))}
      </dl>
      <p class="hint">{texts.daemonHint}</p>
    </Card>
  );
}

function LicencesCard() {
  return (
    <Card title={texts.licences}>
      <p>{texts.licencesIntro}</p>
      <ul>
        {BUILD.parts.map((part) => (
          <li key={part.name}>
            {part.name} {part.version}, {part.licence}. {part.copyright}
          </li>
        ))}
      </ul>
      <a href="/app.js" target="_blank" rel="noopener">
        {texts.licencesFull}
      </a>
    </Card>
  );
}

export function AboutPage() {
  return (
    <div class="about">
      <div class="stack">
        <SettingsCard />
        <Card title={frame.shortcuts}>
          <ShortcutList />
        </Card>
      </div>
      <div class="stack">
        <VersionsCard />
        <LicencesCard />
        <p class="hint">{texts.limits}</p>
      </div>
    </div>
  );
}
