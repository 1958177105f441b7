// The boxes of the selected node inside of each other, with the widths between them.

function edgeWidths(outer, inner) {
    return {
        top: inner.y0 - outer.y0,
        right: outer.x1 - inner.x1,
        bottom: outer.y1 - inner.y1,
        left: inner.x0 - outer.x0,
    };
}

/** A ring of the diagram. */
function makeRing(name, widths, inside) {
    const ring = make('div', 'ring ' + name);
    ring.append(make('span', 'name', name));
    for (const side of ['top', 'right', 'bottom', 'left']) {
        const label = make('span', 'width ' + side, widths[side] === 0 ? '–' : pixels(widths[side]));
        label.title = name + '-' + side;
        ring.append(label);
    }
    ring.append(inside);
    return ring;
}

function makeDiagram(node) {
    const {content, padding, border, margin} = node.boxes;
    const size = pixels(content.x1 - content.x0) + ' × ' + pixels(content.y1 - content.y0);
    const rings = makeRing('padding', edgeWidths(padding, content), make('div', 'ring content', size));
    return makeRing('margin', edgeWidths(margin, border), makeRing('border', edgeWidths(border, padding), rings));
}

function makePlaces(node) {
    const {margin} = node.boxes;
    const facts = [
        ['in parent', node.at.map(pixels).join(', ')],
        ['in scene', pixels(node.origin.x) + ', ' + pixels(node.origin.y)],
        ['outer size', pixels(margin.x1 - margin.x0) + ' × ' + pixels(margin.y1 - margin.y0)],
    ];
    const list = make('dl', 'places');
    for (const [name, value] of facts) {
        const fact = make('div', '');
        fact.append(make('dt', '', name), make('dd', '', value));
        list.append(fact);
    }
    return list;
}

onSelection((what) => {
    if (what !== 'node')
        return;
    const node = selection.node;
    const shown = node.boxes ? [makeDiagram(node), makePlaces(node)] : [make('p', 'note', 'This node has no finite box.')];
    byId('boxes').replaceChildren(...shown);
});
