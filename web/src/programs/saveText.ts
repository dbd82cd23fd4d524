/** Hands a text to the browser as a file to be saved. */
export function saveText(fileName: string, text: string): void {
  const address = URL.createObjectURL(new Blob([text], { type: "text/plain;charset=utf-8" }));
  const link = document.createElement("a");
  link.href = address;
  link.download = fileName;
  link.click();
  // The browser takes hold of the text only after this turn.
  setTimeout(() => URL.revokeObjectURL(address), 10_000);
}
