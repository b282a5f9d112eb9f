// Keeps the side column in step with what is read, and unfolds for the printer what a browser may not unfold itself.
"use strict";
(() => {
  const side = document.querySelector(".side");
  const links = new Map(Array.from(side.querySelectorAll("a"), (link) => [link.hash.slice(1), link]));
  const isInView = new Set();
  let current = null;

  function mark(link) {
    if (!link || link === current) return;
    current?.removeAttribute("aria-current");
    current = link;
    current.setAttribute("aria-current", "location");
    const list = current.closest(".tree");
    if (!list || getComputedStyle(side).position !== "sticky") return;
    const { top, bottom } = current.getBoundingClientRect();
    const frame = side.getBoundingClientRect();
    if (top < frame.top || bottom > frame.bottom) side.scrollTop += top - frame.top - frame.height / 3;
  }

  // What is in the upper part of the window is what is read; an entry comes after the section that it is in.
  const observer = new IntersectionObserver((changes) => {
    for (const { target, isIntersecting } of changes) {
      if (isIntersecting) isInView.add(target);
      else isInView.delete(target);
    }
    const last = Array.from(isInView).sort((a, b) =>
      a.compareDocumentPosition(b) & Node.DOCUMENT_POSITION_FOLLOWING ? -1 : 1).at(-1);
    if (last) mark(links.get(last.id));
  }, { rootMargin: "-15% 0px -75% 0px" });
  for (const id of links.keys()) {
    const target = document.getElementById(id);
    if (target) observer.observe(target);
  }

  let unfolded = [];
  addEventListener("beforeprint", () => {
    unfolded = Array.from(document.querySelectorAll("details:not([open])"));
    for (const details of unfolded) details.open = true;
  });
  addEventListener("afterprint", () => {
    for (const details of unfolded) details.open = false;
  });
})();
