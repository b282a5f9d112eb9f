// Search as you type over all sets and elements. The page's own text is what is searched.
"use strict";
const search = (() => {
  const mostResults = 60;
  const input = document.getElementById("search");
  const list = document.getElementById("results");
  const status = document.getElementById("search-status");

  /** A text as people remember it: small letters, without what stands between words and bytes. */
  const squash = (text) => text.toLowerCase().replace(/[\s\-_.:]/g, "");
  /** The same for what was typed, where an identifier may be written as in other documents. */
  const squashTyped = (text) => squash(text.replace(/^\s*(urn:smpte:ul:|0x)/i, ""));

  function entryOf(article) {
    const name = article.querySelector("h3 a").textContent;
    const documentation = article.querySelector(".documentation")?.textContent ?? "";
    return {
      article, name,
      id: article.querySelector(".identity").textContent,
      isSet: article.classList.contains("set"),
      squashedName: squash(name),
      terms: article.dataset.find.toLowerCase().split(/[\s,]+/).map(squash).filter((term) => term),
      text: `${name} ${article.dataset.find} ${documentation}`.toLowerCase(),
    };
  }

  let made = null;
  /** Made when it is asked for first, so that the page opens without it. */
  const entries = () => (made ??= Array.from(document.querySelectorAll("article.entry"), entryOf));

  /** How well an entry fits, from 0 for exactly; undefined when it does not. */
  function distance(entry, typed, words) {
    if (typed) {
      if (entry.squashedName === typed || entry.terms.includes(typed)) return 0;
      if (entry.squashedName.startsWith(typed)) return 1;
    }
    if (words.every((word) => entry.name.toLowerCase().split(/[\s\-_]+/).some((part) => part.startsWith(word)))) return 2;
    if (typed && entry.squashedName.includes(typed)) return 3;
    if (typed && entry.terms.some((term) => term.startsWith(typed))) return 4;
    if (typed && entry.terms.some((term) => term.includes(typed))) return 5;
    if (words.every((word) => entry.text.includes(word))) return 6;
    return undefined;
  }

  /** The entries that fit a text, the best first; sets before elements, then in the page's order. */
  function find(text) {
    const words = text.toLowerCase().split(/\s+/).filter((word) => word);
    if (words.length === 0) return [];
    const typed = squashTyped(text);
    return entries()
      .map((entry) => ({ entry, distance: distance(entry, typed, words) }))
      .filter((found) => found.distance !== undefined)
      .sort((a, b) => a.distance - b.distance || b.entry.isSet - a.entry.isSet)
      .map((found) => found.entry);
  }

  const make = (tag, className, ...content) => {
    const node = document.createElement(tag);
    node.className = className;
    node.append(...content);
    return node;
  };

  /** The name with the part that was typed marked, where it is there as typed. */
  function markedName(name, typed) {
    const start = typed ? name.toLowerCase().indexOf(typed.toLowerCase()) : -1;
    if (start < 0 || name.toLowerCase().length !== name.length) return [name];
    const end = start + typed.length;
    return [name.slice(0, start), make("mark", "", name.slice(start, end)), name.slice(end)];
  }

  function optionOf(entry, position, typed) {
    const option = make("li", "", make("span", "", ...markedName(entry.name, typed)),
      make("span", "badge", entry.isSet ? "set" : "element"), make("span", "where", entry.id));
    option.id = `result-${position}`;
    option.setAttribute("role", "option");
    option.addEventListener("pointermove", () => choose(position));
    option.addEventListener("click", () => open(position));
    return option;
  }

  let shown = [];
  let chosen = -1;

  function choose(position) {
    list.children[chosen]?.setAttribute("aria-selected", "false");
    chosen = position;
    const option = list.children[chosen];
    option?.setAttribute("aria-selected", "true");
    if (option) input.setAttribute("aria-activedescendant", option.id);
    else input.removeAttribute("aria-activedescendant");
  }

  function close() {
    list.hidden = true;
    input.setAttribute("aria-expanded", "false");
    input.removeAttribute("aria-activedescendant");
    shown = [];
    chosen = -1;
  }

  function show() {
    const typed = input.value.trim();
    if (!typed) {
      status.textContent = "";
      return close();
    }
    const found = find(typed);
    shown = found.slice(0, mostResults);
    chosen = -1;
    list.replaceChildren(...shown.map((entry, position) => optionOf(entry, position, typed)));
    const count = `${found.length || "No"} result${found.length === 1 ? "" : "s"}`;
    status.textContent = count;
    if (found.length !== shown.length || found.length === 0) {
      const note = make("li", "nothing", found.length ? `${count}; the first ${shown.length} are shown` : count);
      note.setAttribute("role", "presentation");
      list.append(note);
    }
    list.hidden = false;
    list.scrollTop = 0;
    input.setAttribute("aria-expanded", "true");
    if (shown.length) choose(0);
  }

  function open(position) {
    const { article } = shown[position];
    close();
    location.hash = article.id;
    filters.reveal(article);
    article.querySelector("h3 a").focus({ preventScroll: true });
  }

  function move(step) {
    if (!shown.length) return;
    choose((chosen + step + shown.length) % shown.length);
    list.children[chosen].scrollIntoView({ block: "nearest" });
  }

  input.addEventListener("input", show);
  input.addEventListener("focus", () => { if (input.value) show(); });
  input.addEventListener("blur", close);
  list.addEventListener("pointerdown", (event) => event.preventDefault());  // the focus stays in the field
  input.addEventListener("keydown", (event) => {
    if (event.isComposing) return;
    if (event.key === "ArrowDown" || event.key === "ArrowUp") {
      if (list.hidden) show();
      else move(event.key === "ArrowDown" ? 1 : -1);
    } else if (event.key === "Enter" && chosen >= 0) open(chosen);
    else if (event.key === "Escape" && !list.hidden) close();
    else return;
    event.preventDefault();
  });
  document.addEventListener("keydown", (event) => {
    if (event.key !== "/" || event.ctrlKey || event.metaKey || event.altKey) return;
    if (event.target.closest("input, select, textarea")) return;
    event.preventDefault();
    input.focus();
    input.select();
  });
  return { find, squash, squashTyped };
})();
