// Highlights the bytes of a field and the field of bytes; search, folding, and
// arrow keys in the tree. The page shows everything without it.
(() => {
  "use strict";

  const fields = document.getElementById("fields");
  const bytes = document.getElementById("bytes");
  const box = document.getElementById("search");
  const lines = [...fields.querySelectorAll(".line")];
  const pieces = [...bytes.querySelectorAll("a")];
  const begin = (element) => Number(element.dataset.begin);
  const end = (element) => Number(element.dataset.end);

  // The pieces are in the order of the bytes.
  function firstPiece(offset) {
    let low = 0;
    let high = pieces.length;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (begin(pieces[middle]) < offset) low = middle + 1;
      else high = middle;
    }
    return low;
  }

  let lit = [];
  function light(line, other) {
    for (const element of lit) element.classList.remove("lit");
    lit = [line];
    const first = firstPiece(begin(line));
    for (let at = first; at < pieces.length; ++at) {
      if (end(pieces[at]) > end(line)) break;
      lit.push(pieces[at]);
    }
    for (const element of lit) element.classList.add("lit");
    const far = other === bytes ? pieces[first] : shownLine(line);
    far?.scrollIntoView({ block: "nearest" });
  }

  // The line itself, or the folded line that contains it.
  function shownLine(line) {
    let shown = line;
    for (
      let fold = line.parentElement.closest("details");
      fold;
      fold = fold.parentElement.closest("details")
    ) {
      const summary = fold.querySelector("summary");
      if (!fold.open && summary !== line) shown = summary;
    }
    return shown;
  }

  const lineOf = (piece) =>
    document.getElementById(piece.getAttribute("href").slice(1));
  for (const event of ["mouseover", "focusin"]) {
    fields.addEventListener(event, ({ target }) => {
      const line = target.closest(".line");
      if (line) light(line, bytes);
    });
    bytes.addEventListener(event, ({ target }) => {
      const piece = target.closest("a");
      if (piece) light(lineOf(piece), fields);
    });
  }

  const isShown = (line) =>
    shownLine(line) === line && !line.closest("li[hidden]");
  function move(line, step) {
    for (
      let at = lines.indexOf(line) + step;
      lines[at];
      at += step
    ) {
      if (isShown(lines[at])) return lines[at].focus();
    }
  }
  function fold(line, open) {
    if (line.tagName === "SUMMARY" && line.parentElement.open !== open) {
      line.parentElement.open = open;
    } else if (open) {
      move(line, 1);
    } else {
      const above = line.closest("ul").closest("details");
      above?.querySelector("summary").focus();
    }
  }
  const keys = {
    ArrowDown: (line) => move(line, 1),
    ArrowUp: (line) => move(line, -1),
    ArrowRight: (line) => fold(line, true),
    ArrowLeft: (line) => fold(line, false),
  };
  fields.addEventListener("keydown", (event) => {
    const line = event.target.closest(".line");
    if (!line || !keys[event.key]) return;
    event.preventDefault();
    keys[event.key](line);
  });

  const isMatch = (line, query) => {
    if (/^0x[0-9a-f]+$/.test(query)) {
      const offset = Number(query);
      return begin(line) <= offset && offset < end(line);
    }
    const name = line.querySelector(".name").textContent;
    const text = line.querySelector(".text").textContent;
    return `${name} ${text}`.toLowerCase().includes(query);
  };
  let found = [];
  function search() {
    const query = box.value.trim().toLowerCase();
    found = query ? lines.filter((line) => isMatch(line, query)) : [];
    const kept = new Set();
    for (const line of found) {
      for (
        let item = line.closest("li");
        item && !kept.has(item);
        item = item.parentElement.closest("li")
      ) {
        kept.add(item);
        const inner = item.querySelector(":scope > details");
        if (inner) inner.open = true;
      }
    }
    for (const line of lines) {
      const item = line.closest("li");
      item.hidden = query !== "" && !kept.has(item);
      line.classList.toggle("found", false);
    }
    for (const line of found) line.classList.add("found");
    document.getElementById("found").textContent = query
      ? `${found.length} of ${lines.length}`
      : "";
    // Of the lines that contain an offset, the innermost one.
    const best = query.startsWith("0x") ? found[found.length - 1] : found[0];
    if (best) light(best, bytes);
  }
  box.addEventListener("input", search);
  box.form.addEventListener("submit", (event) => {
    event.preventDefault();
    found[0]?.focus();
  });

  const foldAll = (open) => () => {
    for (const part of fields.querySelectorAll("details")) part.open = open;
  };
  document.getElementById("fold").addEventListener("click", foldAll(false));
  document.getElementById("unfold").addEventListener("click", foldAll(true));
  document.addEventListener("keydown", (event) => {
    if (event.key !== "/" || event.target === box) return;
    event.preventDefault();
    box.focus();
  });
  box.form.hidden = false;
})();
