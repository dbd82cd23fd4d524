declare module "*.css";

/** What build.mjs knows of the bundle that it makes. */
declare const BUILD: {
  readonly version: string;
  readonly parts: readonly {
    readonly name: string;
    readonly version: string;
    readonly licence: string;
    readonly copyright: string;
  }[];
};
