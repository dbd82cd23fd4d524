// What people do on any page.

/** Logs in by the dialog of the top bar. The demo's passwords are the roles' names. */
export async function logIn(page, role, password = role) {
  await page.getByRole("button", { name: /^(Guest|Operator|Admin)/ }).first().click();
  const dialog = page.getByRole("dialog");
  await dialog.getByLabel("Role").selectOption(role);
  await dialog.getByLabel("Password").fill(password);
  await dialog.getByRole("button", { name: "Log in" }).click();
  await dialog.waitFor({ state: "detached" });
}

/** Goes to a page by its place in the address, as a bookmark does. */
export async function goTo(page, name) {
  await page.evaluate((hash) => { location.hash = hash; }, `#/${name}`);
  await page.locator("h1").waitFor();
}

/** Opens the drive page and unlocks it. */
export async function unlockDrive(page) {
  await goTo(page, "drive");
  const unlock = page.getByLabel("Unlock driving");
  await unlock.check({ force: true });
  await page.getByText("Armed", { exact: true }).waitFor();
}

/** Presses the stick for ahead and sideways and pulls it ahead; the caller lets go of the mouse. */
export async function pushStickAhead(page) {
  const { x, y, width, height } = await page.locator("[data-stick=move]").boundingBox();
  await page.mouse.move(x + width / 2, y + height / 2);
  await page.mouse.down();
  await page.mouse.move(x + width / 2, y + height * 0.1, { steps: 5 });
  await page.getByText("Driving", { exact: true }).waitFor();
}
