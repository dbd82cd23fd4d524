import { useResource } from "../data/useResource";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import { fileNameOf, runningProgram } from "../programs/programList";
import { programs } from "../programs/resources";
import { services } from "../services/resources";
import { StateChip } from "../services/StateChip";
import { isNotActive } from "../services/serviceState";
import { allServices } from "../services/tree";
import * as texts from "../texts/overview";

// Each answer costs the daemon four commands: for a glance this is often enough.
const servicesMs = 15_000;

export function ProgramCard() {
  useResource(programs);
  const list = programs.value.value;
  const running = runningProgram(list ?? []);
  return (
    <Card title={texts.program} aside={<Age resource={programs} />}>
      {list && <p>{running ? texts.running(fileNameOf(running)) : texts.noProgram}</p>}
      <a href="#/programs">{texts.toPrograms}</a>
    </Card>
  );
}

export function ServicesCard() {
  useResource(services, servicesMs);
  const groups = services.value.value;
  const inactive = allServices(groups ?? []).filter(isNotActive);
  return (
    <Card title={texts.services} aside={<Age resource={services} />}>
      {groups && inactive.length === 0 && <p>{texts.allActive}</p>}
      <ul class="plain-list">
        {inactive.map((service) => (
          <li key={service.name} class="row">
            {service.name} <StateChip service={service} />
          </li>
        ))}
      </ul>
      <a href="#/services">{texts.toServices}</a>
    </Card>
  );
}
