#include "ui/layout/layout_script.h"

namespace tsl {

const QString kLayoutScript = QStringLiteral(R"JS(
(function () {
  if (window.__tsl && window.__tsl.doc === document) return;
  document.designMode = 'on';
  let dirty = false;
  const blockNames = { P: 'Normal', PRE: 'Formatted', ADDRESS: 'Address', H1: 'Heading 1',
    H2: 'Heading 2', H3: 'Heading 3', H4: 'Heading 4', H5: 'Heading 5', H6: 'Heading 6',
    DT: 'Definition Term', DD: 'Definition', OL: 'Numbered List', UL: 'Bulleted List',
    DIR: 'Directory List', MENU: 'Menu List' };
  const commands = { 5000: 'bold', 5023: 'italic', 5048: 'underline', 5024: 'justifyCenter',
    5025: 'justifyLeft', 5026: 'justifyRight', 5030: 'insertOrderedList',
    5051: 'insertUnorderedList', 5034: 'removeFormat', 5018: 'indent', 5031: 'outdent',
    5049: 'undo', 5033: 'redo', 5035: 'selectAll',
    5043: 'formatBlock', 5044: 'fontName', 5045: 'fontSize', 5046: 'foreColor' };
  function anchorNode() {
    const s = getSelection();
    return s && s.rangeCount ? s.getRangeAt(0).startContainer : null;
  }
  function up(node, names) {
    for (; node && node !== document; node = node.parentNode)
      if (names.indexOf(node.nodeName) >= 0) return node;
    return null;
  }
  function cell() { return up(anchorNode(), ['TD', 'TH']); }
  function status(name) {
    try {
      if (!document.queryCommandSupported(name)) return 0;
      if (!document.queryCommandEnabled(name)) return 1;
      return document.queryCommandState(name) ? 7 : 3;
    } catch (e) { return 0; }
  }
  function states() {
    const s = {};
    for (const id in commands) s[id] = status(commands[id]);
    const hasSelection = !!anchorNode();
    // Asking the engine about the clipboard would wait on the program; the selection tells.
    const sel = getSelection();
    const someText = sel && sel.rangeCount && !sel.isCollapsed ? 3 : 1;
    s[5003] = someText;
    s[5002] = someText;
    s[5032] = 3;
    const c = cell();
    const inCell = c ? 3 : 1;
    for (const id of [5021, 5020, 5005, 5007, 5006]) s[id] = inCell;
    s[5029] = c && c.nextElementSibling ? 3 : 1;
    s[5047] = c && c.colSpan > 1 ? 3 : 1;
    s[5016] = up(anchorNode(), ['A']) ? 7 : 3;
    for (const id of [5011, 5013, 5014]) s[id] = hasSelection ? 3 : 1;
    return s;
  }
  function value(id) {
    if (id === 5011) {
      const block = up(anchorNode(), Object.keys(blockNames));
      return block ? blockNames[block.nodeName] : 'Normal';
    }
    if (id === 5013) {
      // The engine answers a CSS family list, names quoted; the list shows one plain name.
      const family = document.queryCommandValue('fontName').split(',')[0].trim();
      return family.replace(/^(["'])(.*)\1$/, '$2');
    }
    if (id === 5014) return document.queryCommandValue('fontSize');
    return '';
  }
  function push() {
    console.log('tsl:' + JSON.stringify({ dirty: dirty, states: states(),
      values: { 5011: value(5011), 5013: value(5013), 5014: value(5014) } }));
  }
  function changed() { dirty = true; push(); }
  function newCell(like) {
    const c = document.createElement(like ? like.nodeName : 'TD');
    c.innerHTML = '&nbsp;';
    return c;
  }
  function indexOf(c) { return Array.prototype.indexOf.call(c.parentNode.children, c); }
  function rowsOf(c) { return up(c, ['TABLE']).rows; }
  const table = {
    5021: function (c) {
      const row = c.parentNode, fresh = row.cloneNode(false);
      for (const x of row.children) fresh.appendChild(newCell(x));
      row.parentNode.insertBefore(fresh, row);
    },
    5020: function (c) {
      const at = indexOf(c);
      for (const row of rowsOf(c)) {
        const before = row.children[at] || null;
        row.insertBefore(newCell(before), before);
      }
    },
    5005: function (c) { c.remove(); },
    5007: function (c) { c.parentNode.remove(); },
    5006: function (c) {
      const at = indexOf(c);
      for (const row of Array.from(rowsOf(c))) if (row.children[at]) row.children[at].remove();
    },
    5029: function (c) {
      const next = c.nextElementSibling;
      if (!next) return;
      while (next.firstChild) c.appendChild(next.firstChild);
      c.colSpan = c.colSpan + next.colSpan;
      next.remove();
    },
    5047: function (c) {
      if (c.colSpan < 2) return;
      c.colSpan = c.colSpan - 1;
      c.parentNode.insertBefore(newCell(c), c.nextSibling);
    }
  };
  let borders = null;
  window.__tsl = {
    doc: document,
    html: function () {
      const t = document.doctype;
      const head = t ? '<!DOCTYPE ' + t.name + (t.publicId ? ' PUBLIC "' + t.publicId + '"' : '') +
        (t.systemId ? ' "' + t.systemId + '"' : '') + '>\n' : '';
      return head + document.documentElement.outerHTML;
    },
    dirty: function () { return dirty; },
    exec: function (id, val) {
      if (table[id]) {
        const c = cell();
        if (!c) return false;
        table[id](c);
        changed();
        return true;
      }
      return document.execCommand(commands[id], false, val);
    },
    value: value,
    paste: function (markup) {
      // With no caret in the page yet, the markup goes at the end of the body.
      const s = getSelection();
      if (!s.rangeCount || !document.body.contains(s.anchorNode)) {
        const end = document.createRange();
        end.selectNodeContents(document.body);
        end.collapse(false);
        s.removeAllRanges();
        s.addRange(end);
      }
      return document.execCommand('insertHTML', false, markup);
    },
    colour: function (name, val) {
      if (['bgColor', 'fgColor', 'linkColor', 'alinkColor', 'vlinkColor'].indexOf(name) < 0)
        return '';
      if (val !== undefined) { document[name] = val; changed(); }
      return document[name];
    },
    borders: function (on) {
      if (!borders) {
        borders = new CSSStyleSheet();
        borders.replaceSync('table, td, th { outline: 1px dotted #8a8a8a; outline-offset: -1px; }');
      }
      const others = document.adoptedStyleSheets.filter(function (x) { return x !== borders; });
      document.adoptedStyleSheets = on ? others.concat([borders]) : others;
    }
  };
  document.addEventListener('input', changed);
  document.addEventListener('selectionchange', push);
  push();
})();
)JS");

} // namespace tsl
