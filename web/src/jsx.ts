// What the build puts in the place of JSX. This form takes less room in the script than the automatic one.
export { Fragment, h } from "preact";
