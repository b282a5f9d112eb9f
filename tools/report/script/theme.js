// Runs before the page is shown: what was chosen for the theme last time, and that scripts run at all.
"use strict";
const theme = (() => {
  const root = document.documentElement;
  const key = "mxf-metadict-theme";
  const system = matchMedia("(prefers-color-scheme: dark)");

  // A browser may refuse to store anything for a page from a file; the choice then lasts as long as the page.
  const stored = () => { try { return localStorage.getItem(key); } catch { return null; } };
  const store = (value) => {
    try { value ? localStorage.setItem(key, value) : localStorage.removeItem(key); } catch { /* see above */ }
  };

  const isDark = () => (root.dataset.theme ? root.dataset.theme === "dark" : system.matches);

  function showState() {
    document.getElementById("theme").setAttribute("aria-pressed", String(isDark()));
  }

  /** Changes to the other theme; where that is the system's own, the page follows the system again. */
  function toggle() {
    const dark = !isDark();
    if (dark === system.matches) delete root.dataset.theme;
    else root.dataset.theme = dark ? "dark" : "light";
    store(root.dataset.theme);
    showState();
  }

  root.classList.add("scripted");
  if (["light", "dark"].includes(stored())) root.dataset.theme = stored();
  document.addEventListener("DOMContentLoaded", () => {
    showState();
    system.addEventListener("change", showState);
    document.getElementById("theme").addEventListener("click", toggle);
  });
  return { toggle };
})();
