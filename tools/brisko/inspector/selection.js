// Which node is selected and which one is pointed at; whoever shows it is told.

const selection = {node: null, hovered: null, matches: new Set()};
const selectionWatchers = [];

/** Has a function called with what changed: "node", "hovered" or "matches". */
function onSelection(watcher) {
    selectionWatchers.push(watcher);
}

function change(what, value) {
    if (selection[what] === value)
        return;
    selection[what] = value;
    for (const watcher of selectionWatchers)
        watcher(what);
}

function select(node) {
    change('node', node);
}

function hover(node) {
    change('hovered', node);
}
