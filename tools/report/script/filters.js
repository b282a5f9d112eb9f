// Which elements are shown.
"use strict";
const filters = (() => {
  const form = document.getElementById("filters");
  const articles = Array.from(document.querySelectorAll("article.element"));
  const field = (name) => document.getElementById(`filter-${name}`);

  /** Name, label, tags and XML names, as what is typed is compared with. */
  const textOf = (article) => search.squash(`${article.querySelector("h3 a").textContent} ${article.dataset.find}`);

  function apply() {
    const typed = search.squashTyped(field("text").value);
    let shown = 0;
    for (const article of articles) {
      const fits = ["type", "kind", "used"].every((name) => !field(name).value || article.dataset[name] === field(name).value);
      article.hidden = !fits || (typed !== "" && !textOf(article).includes(typed));
      if (!article.hidden) ++shown;
    }
    const counted = `${articles.length} element${articles.length === 1 ? "" : "s"}`;
    field("count").textContent = shown === articles.length ? `All ${counted}` : `${shown} of ${counted}`;
    document.getElementById("no-match").hidden = shown > 0 || articles.length === 0;
  }

  /** Shows an element or set at the top of the window, and takes the filters back when they hide it. */
  function reveal(article) {
    if (article.hidden) {
      form.reset();
      apply();
    }
    // Entries out of view have an estimated height until they come into it. Where that happens on the way, what is
    // gone to moves once more.
    article.scrollIntoView();
    requestAnimationFrame(() => requestAnimationFrame(() => article.scrollIntoView()));
  }

  /** What the address points at, if anything: it may have been mistyped, or cut off inside an escape. */
  function target() {
    try {
      return document.getElementById(decodeURIComponent(location.hash.slice(1)));
    } catch {
      return null;
    }
  }
  form.addEventListener("input", apply);
  form.addEventListener("submit", (event) => event.preventDefault());
  form.addEventListener("reset", () => setTimeout(apply));  // the fields are reset after the event
  addEventListener("hashchange", () => {
    if (target()?.hidden) reveal(target());
  });
  apply();  // a browser may have kept what was chosen before a reload
  return { reveal };
})();
