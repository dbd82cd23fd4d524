export type Role = "guest" | "operator" | "admin";

const ranks: Readonly<Record<Role, number>> = { guest: 0, operator: 1, admin: 2 };

export function asRole(value: unknown): Role | undefined {
  return value === "guest" || value === "operator" || value === "admin" ? value : undefined;
}

/** Whether a role may do what needs another one; nobody may before the role is known. */
export function reaches(role: Role | undefined, needed: Role): boolean {
  return role !== undefined && ranks[role] >= ranks[needed];
}
