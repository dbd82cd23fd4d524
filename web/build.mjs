import { cp, mkdir, readFile, rm, stat, writeFile } from "node:fs/promises";
import path from "node:path";
import { fileURLToPath } from "node:url";
import { parseArgs } from "node:util";
import { build } from "esbuild";
import { minify } from "terser";

const root = path.dirname(fileURLToPath(import.meta.url));
const { values } = parseArgs({
  options: {
    outdir: { type: "string", default: path.join(root, "dist") },
    "check-budget": { type: "boolean", default: false },
  },
});
const outdir = path.resolve(values.outdir);

// The daemon neither compresses nor lets anything be cached: these bytes are what each visit costs.
const budget = { "app.js": 160_000, "app.css": 25_000 };

const runtimePackages = ["preact", "@preact/signals", "@preact/signals-core"];

async function describePackage(name) {
  const folder = path.join(root, "node_modules", name);
  const { version, license } = JSON.parse(
    await readFile(path.join(folder, "package.json"), "utf8"),
  );
  const text = await readFile(path.join(folder, "LICENSE"), "utf8");
  const copyright = /^Copyright .*$/m.exec(text)?.[0] ?? "";
  const terms = text.slice(text.indexOf(copyright) + copyright.length).trim();
  return { name, version, licence: license, copyright, terms };
}

/** The packages share one licence text, which therefore stands once, below all copyright lines. */
function licenceBanner(parts) {
  const words = (text) => text.replace(/\s+/g, " ");
  const terms = new Map(parts.map((part) => [words(part.terms), part.terms]));
  if (terms.size !== 1) {
    throw new Error(
      "The licence texts of the bundled packages differ: the banner needs all of them.",
    );
  }
  const lines = parts.map(
    (part) => `${part.name} ${part.version}, ${part.licence}. ${part.copyright}`,
  );
  return `/*!\nThis file contains:\n${lines.join("\n")}\n\n${[...terms.values()][0]}\n*/`;
}

const parts = await Promise.all(runtimePackages.map(describePackage));
const { version } = JSON.parse(await readFile(path.join(root, "package.json"), "utf8"));
const known = { version, parts: parts.map(({ terms: _, ...part }) => part) };

await rm(outdir, { recursive: true, force: true });
await mkdir(outdir, { recursive: true });
await build({
  entryPoints: { app: path.join(root, "src/main.tsx") },
  outdir,
  bundle: true,
  minify: true,
  format: "iife",
  charset: "ascii",
  target: ["chrome109", "firefox115", "safari16"],
  jsx: "transform",
  jsxFactory: "h",
  jsxFragment: "Fragment",
  inject: [path.join(root, "src/jsx.ts")],
  legalComments: "none",
  banner: { js: licenceBanner(parts) },
  define: { BUILD: JSON.stringify(known) },
  logLevel: "warning",
});

// A second pass, which finds more to leave out than the bundler's own.
const script = path.join(outdir, "app.js");
const { code } = await minify(await readFile(script, "utf8"), {
  ecma: 2020,
  // Nothing here uses a function without a "this" of its own as a constructor.
  compress: { ecma: 2020, passes: 3, unsafe_arrows: true },
  format: { ascii_only: true, comments: /^!/ },
});
await writeFile(script, code);
await cp(path.join(root, "public"), outdir, { recursive: true });

for (const [name, limit] of Object.entries(budget)) {
  const { size } = await stat(path.join(outdir, name));
  console.log(`${name} ${size} of ${limit} bytes`);
  if (size > limit) {
    console.error(`${name} is larger than its budget.`);
    process.exitCode ||= values["check-budget"] ? 1 : 0;
  }
}
