import type { ComponentChildren } from "preact";

export interface Column<Row> {
  title: string;
  cell: (row: Row) => ComponentChildren;
  align?: "start" | "end";
}

export interface DataTableProps<Row> {
  /** Says what the table holds; read aloud, not shown. */
  caption: string;
  /** The first one names the row. */
  columns: readonly Column<Row>[];
  rows: readonly Row[];
  keyOf: (row: Row) => string | number;
  class?: string;
}

/** With the class "blocks" each row becomes a block on narrow screens, each cell with its title. */
export function DataTable<Row>({
  caption,
  columns,
  rows,
  keyOf,
  class: extra = "",
}: DataTableProps<Row>) {
  return (
    <table class={`table ${extra}`}>
      <caption class="unseen">{caption}</caption>
      <thead>
        <tr>
          {columns.map((column) => (
            <th key={column.title} scope="col" class={column.align}>
              {column.title}
            </th>
          ))}
        </tr>
      </thead>
      <tbody>
        {rows.map((row) => (
          <tr key={keyOf(row)}>
            {columns.map((column, index) =>
              index === 0 ? (
                <th key={column.title} scope="row" class={column.align}>
                  {column.cell(row)}
                </th>
              ) : (
                <td key={column.title} data-title={column.title} class={column.align}>
                  {column.cell(row)}
                </td>
              ),
            )}
          </tr>
        ))}
      </tbody>
    </table>
  );
}
