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
