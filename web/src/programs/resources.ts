import { Resource } from "../data/Resource";
import { decodePrograms } from "./programList";
import { decodeOutput, decodeVariables } from "./variables";

export const programsPath = "/data/program";
export const outputPath = "/data/lumviewout";

export const programs = new Resource(programsPath, { decode: decodePrograms, periodMs: 1000 });

export const output = new Resource(outputPath, { decode: decodeOutput, periodMs: 500 });

export const variables = new Resource("/data/globalvars", {
  decode: decodeVariables,
  periodMs: 500,
});
