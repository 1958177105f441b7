// The panels: side by side where there is room, else one at a time below the picture.

const tabs = [...document.querySelectorAll('[role=tab]')];

/** Brings a panel to the front: "tree", "node", "source" or "messages". */
function showPanel(name) {
    const {dataset} = document.body;
    dataset.panel = name;
    if (name === 'source' || name === 'messages')
        dataset.below = name;
    for (const tab of tabs) {
        const isShown = tab.dataset.shows === (tab.parentElement.id === 'below' ? dataset.below : dataset.panel);
        tab.setAttribute('aria-selected', isShown);
        tab.tabIndex = isShown ? 0 : -1;
    }
}

/** Calls a function whenever an element comes into sight that was not displayed. */
function whenShown(element, action) {
    let isShown = false;
    new ResizeObserver(() => {
        const wasShown = isShown;
        isShown = element.clientHeight > 0;
        if (isShown && !wasShown)
            action();
    }).observe(element);
}

for (const list of document.querySelectorAll('[role=tablist]')) {
    list.addEventListener('click', (event) => {
        const tab = event.target.closest('[role=tab]');
        if (tab)
            showPanel(tab.dataset.shows);
    });
    list.addEventListener('keydown', (event) => {
        const step = {ArrowLeft: -1, ArrowRight: 1}[event.key];
        if (!step)
            return;
        const own = [...list.children];
        const next = own[(own.indexOf(event.target) + step + own.length) % own.length];
        showPanel(next.dataset.shows);
        next.focus();
    });
}
showPanel(document.body.dataset.panel);

/** The name of the selected node and the way to it. */
function paintHead() {
    const node = selection.node;
    const above = [];
    for (let step = node.parent; step && above.length < 30; step = step.parent)
        above.unshift(step);
    const crumbs = above.map((step) => {
        const button = make('button', 'crumb', step.type);
        button.type = 'button';
        button.title = visible(labelOf(step));
        button.addEventListener('click', () => select(step));
        return button;
    });
    byId('node-name').replaceChildren(...nameParts(node));
    byId('node-path').replaceChildren(...crumbs, make('span', 'crumb', node.type + (node.place ? `[${node.place}]` : '')));
    byId('node-path').title = visible(pathOf(node));
}

onSelection((what) => {
    if (what === 'node') {
        paintHead();
        byId('node-body').scrollTop = 0;
    }
});
