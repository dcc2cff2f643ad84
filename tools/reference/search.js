// The search box, and the mark in the contents at what is being read. The page
// is whole without either.
(() => {
  "use strict";

  const MOST = 40;
  const box = document.getElementById("search");
  const list = document.getElementById("results");

  const entries = [];
  for (const [stem, family, kind, type, members] of JSON.parse(
    document.getElementById("search-index").textContent,
  )) {
    const add = (name, what, detail) =>
      entries.push({
        name: name.toLowerCase(),
        path: `${family}.${type}.${what === kind ? "" : name}`.toLowerCase(),
        address: `${stem}.html#${type}${what === kind ? "" : `.${name}`}`,
        shown: name,
        where: `${what} · ${detail}`,
        isType: what === kind,
      });
    add(type, kind, `${family} · ${stem}`);
    const member = kind === "enum" ? "value" : "field";
    for (const name of members) add(name, member, `${family}.${type}`);
  }

  // Lower is better; null is no match. All words have to be in the path, the
  // last one decides how well the name fits.
  function rank(entry, words) {
    if (!words.every((word) => entry.path.includes(word))) return null;
    const last = words[words.length - 1];
    const leaf = entry.name.slice(entry.name.lastIndexOf(".") + 1);
    let value = 3;
    if (leaf === last) value = 0;
    else if (leaf.startsWith(last)) value = 1;
    else if (entry.name.includes(last)) value = 2;
    return value * 2 + (entry.isType ? 0 : 1);
  }

  function find(text) {
    const words = text.toLowerCase().split(/[\s:]+/).filter(Boolean);
    if (!words.length) return [];
    return entries
      .map((entry) => ({ entry, value: rank(entry, words) }))
      .filter((found) => found.value !== null)
      .sort(
        (a, b) =>
          a.value - b.value || a.entry.name.length - b.entry.name.length,
      )
      .map((found) => found.entry);
  }

  function element(tag, className, text) {
    const made = document.createElement(tag);
    made.className = className;
    made.textContent = text;
    return made;
  }

  function option(entry, place) {
    const item = document.createElement("li");
    item.id = `result-${place}`;
    item.setAttribute("role", "option");
    const link = document.createElement("a");
    link.href = entry.address;
    link.tabIndex = -1;
    link.append(
      element("span", "what", entry.shown),
      element("span", "where", entry.where),
    );
    item.append(link);
    return item;
  }

  function select(place) {
    const items = [...list.querySelectorAll("[role=option]")];
    items.forEach((item, at) =>
      item.setAttribute("aria-selected", String(at === place)),
    );
    if (!items[place]) return box.removeAttribute("aria-activedescendant");
    box.setAttribute("aria-activedescendant", items[place].id);
    items[place].scrollIntoView({ block: "nearest" });
  }

  function selected() {
    return [...list.querySelectorAll("[role=option]")].findIndex(
      (item) => item.getAttribute("aria-selected") === "true",
    );
  }

  function close() {
    list.hidden = true;
    box.setAttribute("aria-expanded", "false");
    box.removeAttribute("aria-activedescendant");
  }

  function show() {
    if (!box.value.trim()) return close();
    const found = find(box.value);
    list.replaceChildren(...found.slice(0, MOST).map(option));
    if (found.length > MOST) {
      list.append(element("li", "none", `and ${found.length - MOST} more`));
    } else if (!found.length) {
      list.append(element("li", "none", "Nothing of that name."));
    }
    list.hidden = false;
    box.setAttribute("aria-expanded", "true");
    select(0);
  }

  function move(step) {
    const count = list.querySelectorAll("[role=option]").length;
    if (count) select((selected() + step + count) % count);
  }

  function open() {
    const link = list.querySelector("[aria-selected=true] a");
    if (!link) return;
    close();
    box.blur();
    link.click();
  }

  const keys = {
    ArrowDown: () => (list.hidden ? show() : move(1)),
    ArrowUp: () => move(-1),
    Enter: open,
    Escape: () => (list.hidden ? box.blur() : close()),
  };
  box.addEventListener("keydown", (event) => {
    if (!keys[event.key]) return;
    event.preventDefault();
    keys[event.key]();
  });
  box.addEventListener("input", show);
  box.addEventListener("focus", show);
  box.addEventListener("blur", () => setTimeout(close, 150));
  list.addEventListener("mousedown", (event) => event.preventDefault());
  list.addEventListener("click", close);
  document.addEventListener("keydown", (event) => {
    if (event.key !== "/" || event.target === box) return;
    if (event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    box.focus();
  });
  box.closest(".search").hidden = false;

  const links = new Map(
    [...document.querySelectorAll(".types a")].map((link) => [
      decodeURIComponent(link.hash.slice(1)),
      link,
    ]),
  );
  let here = null;
  const watch = new IntersectionObserver(
    (seen) => {
      for (const { isIntersecting, target } of seen) {
        const link = links.get(target.id);
        if (!isIntersecting || !link || link === here) continue;
        here?.classList.remove("here");
        here = link;
        here.classList.add("here");
        const nav = document.getElementById("contents");
        if (getComputedStyle(nav).position !== "sticky") continue;
        const away = here.offsetTop - nav.scrollTop;
        if (away < 80 || away > nav.clientHeight - 80) {
          nav.scrollTop = here.offsetTop - nav.clientHeight / 2;
        }
      }
    },
    { rootMargin: "-12% 0px -80% 0px" },
  );
  document.querySelectorAll(".type").forEach((section) => watch.observe(section));
})();
