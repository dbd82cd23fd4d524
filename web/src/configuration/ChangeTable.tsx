import { DataTable } from "../kit/DataTable";
import * as texts from "../texts/editing";

export interface ChangeRow {
  readonly name: string;
  readonly from: string;
  readonly to: string;
}

const columns = [
  { title: texts.setting, cell: ({ name }: ChangeRow) => name },
  { title: texts.from, cell: ({ from }: ChangeRow) => from },
  { title: texts.to, cell: ({ to }: ChangeRow) => to },
];

/** Old beside new. */
export function ChangeTable({ rows }: { rows: readonly ChangeRow[] }) {
  return (
    <DataTable
      class="blocks"
      caption={texts.changes}
      columns={columns}
      rows={rows}
      keyOf={({ name }) => name}
    />
  );
}
