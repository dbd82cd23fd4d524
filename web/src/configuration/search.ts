import { type ConfigFile, type ConfigLeaf, fileNameOf, isSecret } from "./tree";

function wordsOf(text: string): string[] {
  return text.toLowerCase().split(/\s+/).filter(Boolean);
}

/** Secrets are found by their names only: a search must not tell them. */
function textOf(leaf: ConfigLeaf): string {
  const value = isSecret(leaf) ? "" : leaf.value;
  return `${fileNameOf(leaf.file)} ${leaf.group} ${leaf.name} ${value}`.toLowerCase();
}

/** The part of the tree that holds all words of the search and passes the filter. */
export function filtered(
  files: readonly ConfigFile[],
  search: string,
  passes: (leaf: ConfigLeaf) => boolean = () => true,
): ConfigFile[] {
  const words = wordsOf(search);
  const isWanted = (leaf: ConfigLeaf) =>
    passes(leaf) && words.every((word) => textOf(leaf).includes(word));
  return files
    .map(({ path, groups }) => ({
      path,
      groups: groups
        .map(({ name, leaves }) => ({ name, leaves: leaves.filter(isWanted) }))
        .filter(({ leaves }) => leaves.length > 0),
    }))
    .filter(({ groups }) => groups.length > 0);
}
