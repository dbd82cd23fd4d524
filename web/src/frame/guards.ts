type Check = () => Promise<boolean>;

const checks = new Set<Check>();

/** Asks before the page is left; the check tells whether that is all right. */
export function guardLeaving(check: Check): () => void {
  checks.add(check);
  return () => {
    checks.delete(check);
  };
}

export async function mayLeave(): Promise<boolean> {
  for (const check of checks) {
    if (!(await check())) {
      return false;
    }
  }
  return true;
}

export function navigate(hash: string): void {
  location.hash = hash;
}
