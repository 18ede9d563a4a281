// The style sheet of the page. Changes no state.
#include "exchange/page_style.hpp"

const std::string_view kStyleDePage = R"(
:root { color-scheme: light dark; --fond: #ffffff; --texte: #1a1a1a; --faible: #4a4a4a; --trait: #8a8a8a; --vif: #0b4f9e; --faute: #a30000; }
@media (prefers-color-scheme: dark) {
  :root { --fond: #14171a; --texte: #f0f0f0; --faible: #c4c4c4; --trait: #8a8a8a; --vif: #8cc4ff; --faute: #ff9a8a; }
}
body { background: var(--fond); color: var(--texte); font-family: sans-serif; line-height: 1.6; margin: 0 auto; max-width: 50rem; padding: 1rem; }
.commentaire { color: var(--faible); }
.ligne { margin: 0.6rem 0; overflow-wrap: anywhere; }
.faute { color: var(--faute); }
math { font-family: "Cambria Math", "STIX Two Math", "Latin Modern Math", "DejaVu Math TeX Gyre", math; font-size: 1.15em; }
code, pre { font-family: monospace; font-size: 1em; }
pre { border: 1px solid var(--trait); overflow-wrap: anywhere; padding: 0.8rem; white-space: pre-wrap; }
.large { overflow-x: auto; }
table { border-collapse: collapse; margin: 1rem 0; }
caption { font-weight: bold; white-space: nowrap; padding: 0.3rem 0; text-align: left; }
th, td { border: 1px solid var(--trait); padding: 0.2rem 0.6rem; text-align: right; }
th[scope="row"] { font-weight: normal; text-align: left; }
.etude { border-left: 3px solid var(--trait); margin: 1rem 0; padding-left: 1rem; }
h2 { font-size: 1.2em; overflow-wrap: anywhere; }
.variations th, .variations td { text-align: left; }
figure { margin: 1rem 0; }
svg { height: auto; max-width: 40rem; width: 100%; }
svg text { fill: var(--texte); font-size: 13px; }
.grille { stroke: var(--trait); stroke-opacity: 0.4; }
.axe { stroke: var(--texte); stroke-width: 1.5; }
.courbe { fill: none; stroke: var(--vif); stroke-width: 2.5; }
.point { fill: var(--vif); }
.baton { stroke: var(--vif); stroke-width: 5; }
@media print {
  :root { --fond: #ffffff; --texte: #000000; --faible: #333333; --trait: #777777; --vif: #000000; --faute: #000000; color-scheme: light; }
  body { max-width: none; padding: 0; }
  .large { overflow: visible; }
  figure, .ligne, tr, table, .large { break-inside: avoid; }
  h2 { break-after: avoid; }
}
)";
