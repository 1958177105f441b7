// The attributes of the selected node with the value on each layer; the highest layer that has one shows.

function makeAttribute(attribute) {
    const row = make('div', 'attribute');
    const layers = make('ul', 'layers');
    attribute.layers.forEach(({layer, text}, i) => {
        const item = make('li', i === 0 ? 'layer wins' : 'layer loses');
        item.append(make('span', 'tag ' + layerNames[layer], layerNames[layer]), makeValue(text));
        layers.append(item);
    });
    row.append(make('span', 'property', attribute.name), layers);
    return row;
}

/** What is armed to run when it changes. */
function makeTransitions(numbers = []) {
    const items = [];
    for (let i = 0; i < numbers.length; i += 3) {
        const row = make('div', 'attribute');
        row.append(make('span', 'property', textOf(numbers[i])),
            make('span', 'note', `changes in ${numbers[i + 1]} s after ${numbers[i + 2]} s`));
        items.push(row);
    }
    return items;
}

function makeGroup(title, rows, isOpen) {
    const group = make('details', 'group');
    group.open = isOpen;
    group.append(make('summary', '', `${title} (${rows.length})`), ...rows);
    return group;
}

let areDefaultsOpen = false; // from node to node

function paintAttributes() {
    const {raw} = selection.node;
    const shown = (list) => attributesOf(list).filter((attribute) => passesFilter(attribute.name)).map(makeAttribute);
    const set = shown(raw.set);
    const groups = [...set];
    const transitions = makeTransitions(raw.transitions);
    if (set.length === 0)
        groups.push(make('p', 'note', filterText ? 'None that is set has a name like this.' : 'None is set.'));
    if (transitions.length > 0)
        groups.push(makeGroup('Transitions', transitions, true));
    const defaults = makeGroup('Defaults', shown(raw.defaults), areDefaultsOpen);
    defaults.addEventListener('toggle', () => {
        areDefaultsOpen = defaults.open;
    });
    byId('attributes').replaceChildren(...groups, defaults);
}

onSelection((what) => {
    if (what === 'node')
        paintAttributes();
});
