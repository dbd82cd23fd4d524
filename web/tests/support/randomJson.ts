/** A generator of numbers that gives the same ones in every run. */
export function randomNumbers(seed: number): () => number {
  let state = seed;
  return () => {
    state = (Math.imul(state, 1_664_525) + 1_013_904_223) >>> 0;
    return state / 2 ** 32;
  };
}

const names = [
  "seq",
  "ranges",
  "angle_min",
  "angle_increment",
  "range_min",
  "range_max",
  "value",
  "voltage",
  "ext_power",
  "state",
  "version",
  "__proto__",
  "constructor",
  "length",
  "0",
  "",
];
const strings = ["", "true", "\u0000", "💡", "<b>", "-1", "running"];
const numbers = [0, -0, 1, -1, 1e308, -1e308, 5e-324, 2 ** 53, 0.1];

export function randomJson(random: () => number, depth = 4): unknown {
  const pick = <T>(list: readonly T[]) => list[Math.floor(random() * list.length)];
  const kind = Math.floor(random() * (depth > 0 ? 7 : 5));
  const count = Math.floor(random() * 9);
  switch (kind) {
    case 0:
      return null;
    case 1:
      return random() < 0.5;
    case 2:
      return pick(numbers);
    case 3:
      return pick(strings);
    case 4:
      return random() * 10;
    case 5:
      return Array.from({ length: count }, () => randomJson(random, depth - 1));
    default:
      return JSON.parse(
        `{${Array.from(
          { length: count },
          () => `${JSON.stringify(pick(names))}:${JSON.stringify(randomJson(random, depth - 1))}`,
        ).join(",")}}`,
      );
  }
}
