#pragma once

namespace quillory {

// The fixed parts of a check's page.

inline constexpr const char* kCheckStyle = R"(
:root {
  color-scheme: light dark;
  --paper: #fdfdfb; --ink: #1d2328; --soft: #5c6770; --line: #d9dee2; --band: #f1f3f4;
  --error: #b3261e; --warning: #a15c00; --ok: #2d7a46; --mark: #fdecc8; --link: #0b57a4;
}
@media (prefers-color-scheme: dark) {
  :root {
    --paper: #15191c; --ink: #e4e8ea; --soft: #9aa6ae; --line: #333b41; --band: #1d2327;
    --error: #ff8a80; --warning: #f2b152; --ok: #79c990; --mark: #4a3c17; --link: #8ab8f0;
  }
}
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 1.5rem; max-width: 90rem; background: var(--paper);
  color: var(--ink); font: 15px/1.45 system-ui, sans-serif; }
h1 { font-size: 1.5rem; margin: 0 0 .25rem; }
h2 { font-size: 1.1rem; margin: 2rem 0 .6rem; }
a { color: var(--link); }
.note, .files { color: var(--soft); margin: .25rem 0; overflow-wrap: anywhere; }
.tiles { display: flex; flex-wrap: wrap; gap: .75rem; margin: 1rem 0; padding: 0; }
.tiles li { list-style: none; border: 1px solid var(--line); border-radius: .5rem;
  padding: .5rem 1rem; background: var(--band); }
.tiles b { display: block; font-size: 1.4rem; font-variant-numeric: tabular-nums; }
.tiles .error b, td.error { color: var(--error); }
.tiles .warning b, td.warning { color: var(--warning); }
.tiles .ok b { color: var(--ok); }
.charts { display: grid; gap: 0 2rem; grid-template-columns: repeat(auto-fit, minmax(min(100%, 30rem), 1fr)); }
svg { width: 100%; height: auto; font: 13px system-ui, sans-serif; fill: var(--ink); }
rect.error { fill: var(--error); } rect.warning { fill: var(--warning); } rect.ok { fill: var(--ok); }
.scroll { overflow-x: auto; border: 1px solid var(--line); border-radius: .5rem; }
table { border-collapse: collapse; width: 100%; }
th, td { text-align: left; padding: .3rem .6rem; border-bottom: 1px solid var(--line);
  vertical-align: top; }
th { position: sticky; top: 0; background: var(--band); white-space: nowrap; }
th button { all: unset; cursor: pointer; font-weight: 600; }
th button:focus-visible { outline: 2px solid var(--link); }
th[aria-sort=ascending] button::after { content: " \25B2"; }
th[aria-sort=descending] button::after { content: " \25BC"; }
td.number { text-align: right; font-variant-numeric: tabular-nums; }
td.finding { min-width: 15rem; }
td.field { white-space: nowrap; }
td.id { overflow-wrap: anywhere; min-width: 7rem; }
td.title { min-width: 12rem; }
.legend { color: var(--soft); margin: 0; }
.legend span { margin-right: .6rem; }
.legend span::before { content: "\25A0"; margin-right: .3rem; }
.legend .error::before { color: var(--error); } .legend .warning::before { color: var(--warning); }
.legend .ok::before { color: var(--ok); }
input { font: inherit; padding: .3rem .6rem; margin: 0 0 .6rem; width: min(100%, 24rem); }
section.record { border: 1px solid var(--line); border-radius: .5rem; padding: .75rem 1rem;
  margin: 0 0 1rem; content-visibility: auto; contain-intrinsic-size: auto 24rem;
  scroll-margin-top: 1rem; }
section.record:target { border-color: var(--link); box-shadow: 0 0 0 1px var(--link); }
section.record h3 { font-size: 1rem; margin: 0; }
section.record ul { margin: .4rem 0; padding-left: 1.2rem; }
li.error::marker { color: var(--error); } li.warning::marker { color: var(--warning); }
pre { margin: .5rem 0 0; white-space: pre-wrap; overflow-wrap: anywhere;
  font: 13px/1.5 ui-monospace, monospace; }
mark { background: var(--mark); color: inherit; }
@media print { input, .back { display: none; } .scroll { overflow: visible; } }
)";

inline constexpr const char* kFindingsLegend =
    "<p class=\"legend\"><span class=\"error\">errors</span> "
    "<span class=\"warning\">warnings</span></p>\n";

inline constexpr const char* kRecordsLegend =
    "<p class=\"legend\"><span class=\"error\">with errors</span> "
    "<span class=\"warning\">with warnings</span> <span class=\"ok\">well</span></p>\n";

inline constexpr const char* kCheckTableHead =
    "<table id=\"findings\"><thead><tr>"
    "<th><button>Weight</button></th><th><button>Finding</button></th>"
    "<th><button>Field</button></th><th><button>Record</button></th>"
    "<th><button>Byte</button></th><th><button>001</button></th>"
    "<th><button>Title</button></th><th><button>File</button></th>"
    "</tr></thead><tbody>\n";

// Sorts the table by the column whose head is pressed, and hides the rows without the words typed.
inline constexpr const char* kCheckScript = R"(
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
)";

}  // namespace quillory
