// What the page does when scripts run: one form at a time, the choice of profile, folding, search.
//
// The forms, the lists and what is below a class of the tree stand in noscript elements. Without scripts they are
// the page itself; with scripts the browser keeps them as text and makes no elements of them, so that a page of
// 100,000 codes opens at once. The functions here take out of the text what is to be seen.
"use strict";
(() => {
  const element = id => document.getElementById(id);
  const tree = element("_tree"), view = element("_view"), search = element("_search"), results = element("_results");
  const chosenProfile = element("_profile");
  const title = document.title;
  const mostResults = 100;

  // The text of each noscript element with forms or lists.
  const chunks = [...document.querySelectorAll("main noscript")].map(holder => holder.textContent);

  // As the attribute href has it.
  const addressOf = id => "#" + id.replaceAll("%", "%25");
  const escaped = text => text.replace(/[&<>"]/g, c => ({"&": "&amp;", "<": "&lt;", ">": "&gt;", '"': "&quot;"})[c]);
  const entities = {"&amp;": "&", "&lt;": "<", "&gt;": ">", "&quot;": '"'};
  const plain = html => html.replace(/<[^>]*>/g, " ").replace(/&(?:amp|lt|gt|quot);/g, entity => entities[entity]);
  const folded = text => text.normalize("NFD").replace(/\p{M}/gu, "").toLowerCase();

  // The markup of the article that has the anchor `id`, or else of the one with a field that has it; null when
  // there is none.
  function articleOf(id) {
    for (const mark of [`<article id="${escaped(id)}"`, `<section class="field" id="${escaped(id)}"`]) {
      for (const text of chunks) {
        const place = text.indexOf(mark);
        if (place >= 0)
          return text.slice(text.lastIndexOf("<article", place), text.indexOf("</article>", place) + 10);
      }
    }
    return null;
  }

  function elementsOf(html) {
    const template = document.createElement("template");
    template.innerHTML = html;
    return template.content;
  }

  // Profiles

  const isFor = (node, profile) => profile === "" || node.dataset.p.split(" ").includes(profile);

  function applyProfile(root) {
    const profile = chosenProfile.value;
    for (const node of root.querySelectorAll("[data-p]"))
      node.hidden = !isFor(node, profile);
    for (const names of root.querySelectorAll(".in"))
      names.hidden = profile !== "";
    for (const form of root.querySelectorAll("article[data-form]")) {
      const note = form.querySelector(".nofields");
      if (note)
        note.hidden = [...form.querySelectorAll(".field")].some(field => !field.hidden);
    }
  }

  // Shows the values of a list below the line that names it.
  function unfoldLists(form) {
    for (const link of form.querySelectorAll("a.list")) {
      const html = articleOf(decodeURIComponent(link.hash.slice(1)));
      if (!html)
        continue;
      const row = link.closest("tr"), field = link.closest(".field");
      for (const values of elementsOf(html).querySelectorAll(".values")) {
        const profiles = (row.dataset.p || field.dataset.p || values.dataset.p).split(" ");
        const shared = values.dataset.p.split(" ").filter(profile => profiles.includes(profile));
        if (shared.length === 0)
          continue;
        values.dataset.p = shared.join(" ");
        link.parentElement.append(values);
      }
    }
  }

  // Pages

  function show(section) {
    for (const other of document.querySelectorAll("main > section"))
      other.classList.toggle("shown", other === section);
    view.replaceChildren();
  }

  function showArticle(html, id) {
    show(null);
    view.append(elementsOf(html));
    unfoldLists(view);
    applyProfile(view);
    const target = element(id);
    if (target && target.classList.contains("field")) {
      target.classList.add("target");
      target.scrollIntoView();
    } else {
      element("_page").scrollTop = 0;
    }
  }

  function open(id, takesFocus) {
    const section = id === "" ? element("_overview") : element(id);
    const html = section && section.matches("main > section") ? null : articleOf(id);
    if (html)
      showArticle(html, id);
    else
      show(section && section.matches("main > section") ? section : element("_overview"));
    const article = view.querySelector("article");
    mark(article ? article.id : id);
    document.title = article ? `${article.querySelector("h2, h3").textContent.trim()} \u2013 ${title}` : title;
    if (takesFocus && innerWidth < 768)
      element("_page").scrollIntoView();
  }

  const currentId = () => {
    try {
      return decodeURIComponent(location.hash.slice(1));
    } catch {
      return location.hash.slice(1);
    }
  };

  // Tree

  function grow(branch) {
    const holder = branch.querySelector(":scope > noscript");
    if (holder)
      holder.replaceWith(elementsOf(holder.textContent));
  }

  function mark(id) {
    for (const link of document.querySelectorAll("nav [aria-current]"))
      link.removeAttribute("aria-current");
    const address = addressOf(id);
    const written = `href="${escaped(address)}"`;
    for (const holder of tree.querySelectorAll("noscript")) {
      if (holder.textContent.includes(written))
        grow(holder.parentElement);
    }
    const link = [...tree.querySelectorAll("a")].find(candidate => candidate.getAttribute("href") === address);
    if (!link)
      return;
    link.setAttribute("aria-current", "page");
    for (let branch = link.closest("details"); branch; branch = branch.parentElement.closest("details")) {
      if (!link.matches("summary > a") || branch !== link.closest("details"))
        branch.open = true;
    }
    link.scrollIntoView({block: "nearest"});
  }

  const isSeen = link => link.checkVisibility ? link.checkVisibility({contentVisibilityAuto: true}) : link.offsetParent;
  const seenLinks = root => [...root.querySelectorAll("a")].filter(isSeen);

  function walk(event) {
    const link = event.target;
    const isFound = results.contains(link);
    const branch = !isFound && link.matches("summary > a") ? link.closest("details") : null;
    if (event.key === "ArrowRight" && branch) {
      branch.open = true;
    } else if (event.key === "ArrowLeft" && !isFound) {
      const upper = branch && branch.open ? branch : (branch || link).parentElement.closest("details");
      if (upper && upper === branch)
        branch.open = false;
      else if (upper)
        (upper.querySelector(":scope > summary > a") || upper.querySelector("summary")).focus();
    } else if (event.key === "ArrowDown" || event.key === "ArrowUp") {
      const links = seenLinks(isFound ? results : tree);
      const next = links[links.indexOf(link) + (event.key === "ArrowDown" ? 1 : -1)];
      (next || (isFound ? search : link)).focus();
    } else {
      return;
    }
    event.preventDefault();
  }

  // Search

  let index = null;

  // By article: its anchor, what is shown of it, and what is searched for.
  function makeIndex() {
    index = [];
    const users = new Map();
    for (const text of chunks) {
      for (const html of text.split("<article ").slice(1)) {
        const [, id] = /^id="([^"]*)"/.exec(html);
        const [, , code, caption] = /<(h[23])>(?:<code>(.*?)<\/code>)?(.*?)<\/\1>/s.exec(html);
        const entry = {id: plain(id), code: plain(code || ""), caption: plain(caption).trim(), users: []};
        const remarks = /<p class="text">(.*?)<\/p>/s.exec(html);
        const isList = !/^id="[^"]*" data-form>/.test(html);
        entry.isList = isList;
        entry.title = folded(entry.code + " " + entry.caption);
        entry.more = folded(isList ? plain(html.slice(html.indexOf("</h3>") + 5)) : remarks ? plain(remarks[1]) : "");
        for (const [, list] of html.matchAll(/class="list" href="#([^"]*)"/g)) {
          if (!users.has(list))
            users.set(list, []);
          users.get(list).push(entry);
        }
        index.push(entry);
      }
    }
    for (const entry of index)
      entry.users = entry.isList ? users.get(escaped(addressOf(entry.id).slice(1))) || [] : [];
  }

  const holdsAll = (text, words) => words.every(word => text.includes(word));

  // The best matches first; a code whose list has the value comes after the list.
  function matches(query) {
    const words = folded(query).split(/\s+/).filter(word => word);
    const ranks = [[], [], [], [], []];
    for (const entry of index) {
      if (folded(entry.code).startsWith(words.join(" ")) && entry.code)
        ranks[0].push({entry});
      else if (holdsAll(entry.title, words))
        ranks[1].push({entry});
      else if (holdsAll(entry.title + " " + entry.more, words)) {
        ranks[entry.isList ? 3 : 2].push({entry, why: entry.isList ? "value" : "remark"});
        for (const user of entry.users)
          ranks[4].push({entry: user, why: `value of ${entry.caption}`});
      }
    }
    const seen = new Set();
    return ranks.flat().filter(({entry}) => !seen.has(entry) && seen.add(entry));
  }

  function resultOf({entry, why}) {
    const item = document.createElement("li"), link = document.createElement("a"), code = document.createElement("code");
    link.href = "#" + encodeURIComponent(entry.id);
    code.textContent = entry.code;
    link.append(code, entry.code ? " " : "", entry.caption);
    if (why) {
      const reason = document.createElement("small");
      reason.textContent = ` ${why}`;
      link.append(reason);
    }
    item.append(link);
    return item;
  }

  function find() {
    const query = search.value.trim();
    element("_found").hidden = query === "";
    tree.hidden = query !== "";
    if (query === "")
      return;
    if (!index)
      makeIndex();
    const found = matches(query);
    results.replaceChildren(...found.slice(0, mostResults).map(resultOf));
    const more = found.length > mostResults ? `, the first ${mostResults} are shown` : "";
    element("_count").textContent = `${found.length} found${more}`;
  }

  // On paper: all forms, for the chosen profile.

  function unfoldAll() {
    for (const holder of document.querySelectorAll("main noscript")) {
      const copy = document.createElement("div");
      copy.className = "printed";
      copy.append(elementsOf(holder.textContent));
      applyProfile(copy);
      holder.after(copy);
    }
  }

  function foldAll() {
    for (const copy of document.querySelectorAll(".printed"))
      copy.remove();
  }

  function pressKey(event) {
    if (event.ctrlKey || event.altKey || event.metaKey)
      return;
    if (event.target === search) {
      if (event.key === "ArrowDown" && results.querySelector("a")) {
        results.querySelector("a").focus();
        event.preventDefault();
      } else if (event.key === "Escape") {
        search.value = "";
        find();
      }
    } else if (event.key === "/" && event.target !== chosenProfile) {
      search.focus();
      event.preventDefault();
    } else if (event.target.matches && event.target.matches("nav a")) {
      walk(event);
    }
  }

  document.documentElement.classList.add("live");
  element("_tools").hidden = false;
  element("_tools").addEventListener("submit", event => {
    event.preventDefault();
    const first = results.querySelector("a");
    if (first)
      first.click();
  });
  tree.addEventListener("toggle", event => grow(event.target), true);
  chosenProfile.addEventListener("change", () => applyProfile(document));
  search.addEventListener("input", find);
  document.addEventListener("keydown", pressKey);
  // The link that skips the tree leaves the form as it is.
  addEventListener("hashchange", () => currentId() === "_page" || open(currentId(), true));
  addEventListener("beforeprint", unfoldAll);
  addEventListener("afterprint", foldAll);
  applyProfile(element("_page"));
  open(currentId(), false);
})();
