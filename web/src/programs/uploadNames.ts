/**
 * Which names a program's file may have, and which one it gets when its own is taken.
 *
 * The daemon doesn't check names: one with a slash would be written elsewhere, one that begins with
 * a dot would be hidden from the list, and one without a dot could never be started.
 */

export type NameProblem =
  | "empty"
  | "slash"
  | "control"
  | "noDot"
  | "dotAtEdge"
  | "blankAtEdge"
  | "long";

/** What the file systems of the controller allow, in bytes. */
const maxNameBytes = 255;

export function problemOfFileName(fileName: string): NameProblem | undefined {
  if (fileName.trim() === "") {
    return "empty";
  }
  if (/[/\\]/.test(fileName)) {
    return "slash";
  }
  // Half of a surrogate pair can't be written as UTF-8 and would come back as another name.
  if (/[\p{Cc}\p{Cs}\u2028\u2029]/u.test(fileName)) {
    return "control";
  }
  if (!fileName.includes(".")) {
    return "noDot";
  }
  if (fileName.startsWith(".") || fileName.endsWith(".")) {
    return "dotAtEdge";
  }
  if (fileName.trim() !== fileName) {
    return "blankAtEdge";
  }
  return new TextEncoder().encode(fileName).length > maxNameBytes ? "long" : undefined;
}

/** The name with the smallest number behind its first part that is not taken. */
export function freeFileName(fileName: string, taken: ReadonlySet<string>): string {
  const dot = fileName.indexOf(".");
  const base = dot < 0 ? fileName : fileName.slice(0, dot);
  const rest = dot < 0 ? "" : fileName.slice(dot);
  for (let number = 2; ; number += 1) {
    const candidate = `${base}-${number}${rest}`;
    if (!taken.has(candidate)) {
      return candidate;
    }
  }
}

/** What one upload may hold: the daemon keeps a body whole, a few times over, while it reads it. */
export const maxFileBytes = 32 * 1024 * 1024;

/** The Base64 part of a data URL; an empty file's URL may have none. */
export function base64Of(dataUrl: string): string {
  const comma = dataUrl.lastIndexOf(",");
  return comma < 0 ? "" : dataUrl.slice(comma + 1);
}

export function uploadBody(name: string, size: number, base64: string): string {
  return JSON.stringify({ name, size, data: base64 });
}
