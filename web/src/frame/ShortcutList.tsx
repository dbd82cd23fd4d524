import { shortcutGroups } from "../texts/shortcuts";

export function ShortcutList() {
  return (
    <div class="shortcuts">
      {shortcutGroups.map((group) => (
        <section key={group.title}>
          <h3>{group.title}</h3>
          <dl>
            {group.shortcuts.map(({ keys, does }) => (
              <div key={does}>
                <dt>
                  {keys.map((key) => (
                    <kbd key={key}>{key}</kbd>
                  ))}
                </dt>
                <dd>{does}</dd>
              </div>
            ))}
          </dl>
        </section>
      ))}
    </div>
  );
}
