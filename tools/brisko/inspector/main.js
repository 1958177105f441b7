// Says what the page is about, minds the keys that work everywhere, and begins with the first node.

const help = byId('help');

function isTyping(event) {
    return event.target.closest('input, select, textarea, dialog') !== null;
}

document.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey || help.open)
        return;
    if (event.key === 'Escape') {
        event.preventDefault();
        endSearch();
        return;
    }
    const actions = {
        '/': () => { query.focus(); query.select(); },
        '?': () => help.showModal(),
        '+': () => stepZoom(1),
        '=': () => stepZoom(1),
        '-': () => stepZoom(-1),
        '0': fitZoom,
    };
    const action = actions[event.key];
    if (!action || isTyping(event))
        return;
    event.preventDefault();
    action();
});
byId('help-button').addEventListener('click', () => help.showModal());

say(byId('scene-name'), baseName(data.scene)).title = visible(data.scene);
say(byId('node-count'), counted(nodes.length, 'node'));
say(byId('facts'), `brisko ${data.version}`);
document.title = visible(baseName(data.scene)) + ' – brisko inspect';
listRows();

/** The node whose path stands behind the "#" of the address, else the first one. */
function nodeOfAddress() {
    let path = '';
    try {
        path = decodeURIComponent(location.hash.slice(1));
    } catch {
        // Not an address of ours.
    }
    return nodes.find((node) => path.endsWith('/' + node.type + (node.place ? `[${node.place}]` : '')) &&
        pathOf(node) === path) || nodes[0];
}

window.addEventListener('hashchange', () => select(nodeOfAddress()));
select(nodeOfAddress());
