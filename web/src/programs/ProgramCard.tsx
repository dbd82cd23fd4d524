import { signal } from "@preact/signals";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import { Chip } from "../kit/Chip";
import { DataTable } from "../kit/DataTable";
import { Empty } from "../kit/Empty";
import * as texts from "../texts/programs";
import { ProgramButtons } from "./ProgramButtons";
import { fileNameOf, isDownloadOnly, type Program } from "./programList";
import { RenameForm } from "./RenameForm";
import { programs } from "./resources";

const renaming = signal<string | undefined>(undefined);

function State({ program }: { program: Program }) {
  if (program.running) {
    return (
      <Chip tone="ok" icon="play">
        {texts.running}
      </Chip>
    );
  }
  return isDownloadOnly(program) ? (
    <Chip tone="neutral" icon="download" title={texts.downloadOnlyTitle}>
      {texts.downloadOnly}
    </Chip>
  ) : (
    <Chip tone="neutral" icon="square">
      {texts.stopped}
    </Chip>
  );
}

function isRenamed(program: Program): boolean {
  return renaming.value === fileNameOf(program) && !program.running;
}

interface NameProps {
  program: Program;
  all: readonly Program[];
  enabled: boolean;
}

function Name({ program, all, enabled }: NameProps) {
  if (isRenamed(program)) {
    return (
      <RenameForm
        program={program}
        all={all}
        enabled={enabled}
        onEnd={() => {
          renaming.value = undefined;
        }}
      />
    );
  }
  return (
    <span class="name">
      {program.name}
      <wbr />
      {program.suffix && <span class="suffix">.{program.suffix}</span>}
    </span>
  );
}

export function ProgramCard({ enabled }: { enabled: boolean }) {
  const list = programs.value.value;
  const columns = [
    {
      title: texts.name,
      cell: (program: Program) => <Name program={program} all={list ?? []} enabled={enabled} />,
    },
    { title: texts.state, cell: (program: Program) => <State program={program} /> },
    {
      title: texts.actions,
      align: "end" as const,
      cell: (program: Program) =>
        !isRenamed(program) && (
          <ProgramButtons
            program={program}
            enabled={enabled}
            onRename={() => {
              renaming.value = fileNameOf(program);
            }}
          />
        ),
    },
  ];
  return (
    <Card title={texts.list} aside={<Age resource={programs} />}>
      {list?.length === 0 && <Empty icon="file">{texts.none}</Empty>}
      {list !== undefined && list.length > 0 && (
        <DataTable
          class="blocks"
          caption={texts.list}
          columns={columns}
          rows={list}
          keyOf={fileNameOf}
        />
      )}
    </Card>
  );
}
