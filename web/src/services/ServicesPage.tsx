import { useState } from "preact/hooks";
import { linkState } from "../data/link";
import { canAdminister, canOperate } from "../data/session";
import { useResource } from "../data/useResource";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import { Empty } from "../kit/Empty";
import { SearchInput } from "../kit/SearchInput";
import { LoginHint } from "../programs/LoginHint";
import * as texts from "../texts/services";
import { services } from "./resources";
import { ServiceItem } from "./ServiceItem";
import "./services.css";
import { filtered, rowsOf } from "./tree";

export function ServicesPage() {
  useResource(services);
  const [words, setWords] = useState("");
  const groups = services.value.value;
  const shown = filtered(groups ?? [], words);
  const connected = linkState.value === "connected";
  const rights = {
    mayRun: connected && canOperate.value,
    mayActivate: connected && canAdminister.value,
  };
  return (
    <div class="services stack">
      <LoginHint>{texts.needsOperator}</LoginHint>
      <div class="row">
        <SearchInput label={texts.filter} value={words} onInput={setWords} />
        <Age resource={services} />
      </div>
      {groups !== undefined && shown.length === 0 && (
        <Empty icon="services">{groups.length === 0 ? texts.none : texts.noMatch}</Empty>
      )}
      {shown.map((group) => (
        <Card key={group.name} title={group.name}>
          <ul>
            {rowsOf(group).map((row) => (
              <ServiceItem key={row.service.name} row={row} rights={rights} />
            ))}
          </ul>
        </Card>
      ))}
    </div>
  );
}
