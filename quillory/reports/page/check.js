"use strict";
const table = document.getElementById("findings");
if (table) {
  const body = table.tBodies[0];
  const heads = [...table.tHead.rows[0].cells];
  const compare = new Intl.Collator(undefined, {numeric: true}).compare;
  heads.forEach((head, column) => head.firstChild.addEventListener("click", () => {
    const down = head.getAttribute("aria-sort") === "ascending";
    heads.forEach(other => other.removeAttribute("aria-sort"));
    head.setAttribute("aria-sort", down ? "descending" : "ascending");
    const rows = [...body.rows].map(row => [row.cells[column].textContent, row]);
    rows.sort((a, b) => (down ? -1 : 1) * compare(a[0], b[0]));
    body.append(...rows.map(([, row]) => row));
  }));
  const filter = document.getElementById("filter");
  filter.addEventListener("input", () => {
    const words = filter.value.toLowerCase().split(/\s+/);
    for (const row of body.rows) {
      const text = row.textContent.toLowerCase();
      row.hidden = !words.every(word => text.includes(word));
    }
  });
}
