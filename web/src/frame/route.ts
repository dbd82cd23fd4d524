/** The path of "#/drive" is "drive"; what follows a further slash or a semicolon is the page's own. */
export function pathOf(hash: string): string {
  return /^#\/?([^/;?]*)/.exec(hash)?.[1] ?? "";
}

export function hashOf(path: string): string {
  return `#/${path}`;
}
