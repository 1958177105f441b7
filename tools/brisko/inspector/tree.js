// The tree of nodes: only the rows in sight are elements, so that large scenes scroll as small ones do.

const tree = byId('tree');
const treeRows = byId('rows');
const rowHeight = 24;
const indent = 12;
const deepestIndent = 24; // levels; deeper ones stand below each other
const closedNodes = new Set();
let openRows = nodes; // the nodes that have a row, in order

function listRows() {
    openRows = [];
    let skipBelow = Infinity;
    for (const node of nodes) {
        if (node.depth > skipBelow)
            continue;
        skipBelow = closedNodes.has(node) ? node.depth : Infinity;
        openRows.push(node);
    }
    treeRows.style.height = openRows.length * rowHeight + 'px';
}

function makeRow(node, place) {
    const row = make('div', 'row');
    row.id = 'row-' + node.index;
    row.setAttribute('role', 'treeitem');
    row.setAttribute('aria-level', node.depth + 1);
    row.setAttribute('aria-setsize', node.parent ? node.parent.children.length : 1);
    row.setAttribute('aria-posinset', node.row + 1);
    row.setAttribute('aria-selected', node === selection.node);
    if (node.children.length > 0)
        row.setAttribute('aria-expanded', !closedNodes.has(node));
    row.classList.toggle('matching', selection.matches.has(node));
    row.classList.toggle('hovered', node === selection.hovered);
    row.style.top = place * rowHeight + 'px';
    row.style.paddingLeft = 6 + Math.min(node.depth, deepestIndent) * indent + 'px';
    row.append(make('span', 'twist'), ...nameParts(node));
    const content = contentOf(node);
    row.title = visible(labelOf(node));
    if (content)
        row.append(make('span', 'content', content.slice(0, 200)));
    return row;
}

/** The identity of a node, each part in the colour of its kind. */
function nameParts(node) {
    const parts = [make('span', 'type', node.type)];
    if (node.id)
        parts.push(make('span', 'id', '#' + node.id));
    for (const name of node.classes)
        parts.push(make('span', 'class', '.' + name));
    for (const name of node.pseudoClasses)
        parts.push(make('span', 'pseudo', ':' + name));
    return parts;
}

function paintRows() {
    const first = Math.max(Math.floor(tree.scrollTop / rowHeight) - 8, 0);
    const last = Math.ceil((tree.scrollTop + tree.clientHeight) / rowHeight) + 8;
    treeRows.replaceChildren(...openRows.slice(first, last).map((node, i) => makeRow(node, first + i)));
    const isShown = selection.node && byId('row-' + selection.node.index);
    if (isShown)
        tree.setAttribute('aria-activedescendant', 'row-' + selection.node.index);
    else
        tree.removeAttribute('aria-activedescendant');
}

/** Leaves the rows as they are: one of them may be about to be clicked. */
function markHovered() {
    for (const row of treeRows.children)
        row.classList.toggle('hovered', nodeOfRow(row) === selection.hovered);
}

function setOpen(node, isOpen) {
    if (isOpen)
        closedNodes.delete(node);
    else
        closedNodes.add(node);
    listRows();
    paintRows();
}

function revealSelected() {
    let isHidden = false;
    for (let above = selection.node.parent; above; above = above.parent)
        isHidden = closedNodes.delete(above) || isHidden;
    if (isHidden)
        listRows();
    const top = openRows.indexOf(selection.node) * rowHeight;
    const beyond = top < tree.scrollTop ? top - tree.scrollTop
        : Math.max(top + 2 * rowHeight - tree.scrollTop - tree.clientHeight, 0);
    if (Math.abs(beyond) > 2 * rowHeight)
        tree.scrollTop = top - tree.clientHeight / 2; // from elsewhere
    else
        tree.scrollTop += beyond;
}

function nodeOfRow(element) {
    const row = element.closest('.row');
    return row ? nodes[Number(row.id.slice('row-'.length))] : null;
}

/** The node that a key leads to; null for a key that leads nowhere. */
function nodeAfterKey(key) {
    const node = selection.node;
    const isOpen = node.children.length > 0 && !closedNodes.has(node);
    const place = openRows.indexOf(node);
    const page = Math.max(Math.floor(tree.clientHeight / rowHeight) - 1, 1);
    switch (key) {
    case 'ArrowUp':
        return openRows[Math.max(place - 1, 0)];
    case 'ArrowDown':
        return openRows[Math.min(place + 1, openRows.length - 1)];
    case 'PageUp':
        return openRows[Math.max(place - page, 0)];
    case 'PageDown':
        return openRows[Math.min(place + page, openRows.length - 1)];
    case 'Home':
        return openRows[0];
    case 'End':
        return openRows[openRows.length - 1];
    case 'ArrowLeft':
        return isOpen ? node : node.parent || node;
    case 'ArrowRight':
        return isOpen ? node.children[0] : node;
    default:
        return null;
    }
}

tree.addEventListener('keydown', (event) => {
    if (event.altKey || event.ctrlKey || event.metaKey)
        return;
    const node = nodeAfterKey(event.key);
    if (!node)
        return;
    event.preventDefault();
    if (node === selection.node && node.children.length > 0 && event.key.startsWith('Arrow')) {
        if (event.key === 'ArrowLeft')
            setOpen(node, false);
        else if (event.key === 'ArrowRight')
            setOpen(node, true);
    }
    select(node);
});

tree.addEventListener('click', (event) => {
    const node = nodeOfRow(event.target);
    if (!node)
        return;
    if (event.target.classList.contains('twist') && node.children.length > 0)
        setOpen(node, closedNodes.has(node));
    else
        select(node);
});

tree.addEventListener('mouseover', (event) => hover(nodeOfRow(event.target)));
tree.addEventListener('mouseleave', () => hover(null));
tree.addEventListener('scroll', paintRows);
new ResizeObserver(paintRows).observe(tree);
whenShown(tree, revealSelected);

onSelection((what) => {
    if (what === 'hovered')
        return markHovered();
    if (what === 'node')
        revealSelected();
    paintRows();
});
