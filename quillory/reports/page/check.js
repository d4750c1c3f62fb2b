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
  const choices = [...document.querySelectorAll("#filters select")];
  const apply = () => {
    const words = filter.value.toLowerCase().split(/\s+/);
    const records = new Set();
    let count = 0;
    for (const row of body.rows) {
      const text = row.textContent.toLowerCase();
      row.hidden = !words.every(word => text.includes(word)) ||
        choices.some(choice => choice.value && choice.value !== "=" + row.dataset[choice.name]);
      if (row.hidden) continue;
      ++count;
      records.add(row.dataset.record);
    }
    if (choices.length === 0) return;
    for (const section of document.querySelectorAll("section.record")) {
      section.hidden = !records.has(section.id);
    }
    document.getElementById("shown").value =
      count === body.rows.length ? "" : `${count} of ${body.rows.length} findings`;
  };
  filter.addEventListener("input", apply);

  for (const choice of choices) {
    const counts = new Map();
    for (const row of body.rows) {
      const value = row.dataset[choice.name];
      counts.set(value, (counts.get(value) || 0) + 1);
    }
    choice.add(new Option("any", ""));
    for (const value of [...counts.keys()].sort(compare)) {
      choice.add(new Option(`${value || "whole record"} (${counts.get(value)})`, "=" + value));
    }
    choice.addEventListener("change", apply);
  }
  const clear = () => {
    filter.value = "";
    choices.forEach(choice => choice.value = "");
  };
  document.getElementById("all")?.addEventListener("click", () => {
    clear();
    apply();
  });
  const rule = choices.find(choice => choice.name === "rule");
  for (const button of document.querySelectorAll("#rules button")) {
    const value = "=" + button.dataset.rule;
    button.disabled = ![...rule.options].some(option => option.value === value);
    button.addEventListener("click", () => {
      clear();
      rule.value = value;
      apply();
      document.getElementById("filters").scrollIntoView();
    });
  }
}
