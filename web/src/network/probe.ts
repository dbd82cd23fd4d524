/**
 * Whether the robot answers at another address. An image is the one thing that a page may load from
 * there and be told about, as long as the browser lets it reach that network at all.
 */
export function probe(origin: string, timeoutMs = 2000): Promise<boolean> {
  return new Promise((resolve) => {
    const image = new Image();
    const settle = (reached: boolean) => {
      clearTimeout(timer);
      image.onload = null;
      image.onerror = null;
      image.src = "";
      resolve(reached);
    };
    const timer = setTimeout(() => settle(false), timeoutMs);
    image.onload = () => settle(true);
    image.onerror = () => settle(false);
    image.src = `${origin}/probe.png?${Date.now()}`;
  });
}
