// The scene as the page holds it. Nodes are in document order; what they share stands in tables by number.

const data = JSON.parse(byId('data').textContent);
const layerNames = ['default', 'style', 'user', 'important', 'animation'];
const boxNames = ['content', 'padding', 'border', 'margin'];

/** What became of a declaration, by number. */
const Outcome = {
    Wins: 0,
    LostByImportance: 1,
    LostBySpecificity: 2,
    LostByOrder: 3,
    Refused: 4,
    OverriddenByProgram: 5,
    OverriddenByTransition: 6,
    NotServed: 7,
};

const textOf = (number) => data.texts[number];
const textsOf = (numbers = []) => numbers.map(textOf);

/** The four boxes of a node in its own coordinates, by name; null where one of them is not finite. */
function readBoxes(edges) {
    if (!edges || !edges.every(Number.isFinite))
        return null;
    const boxes = {};
    boxNames.forEach((name, i) => {
        const [x0, y0, x1, y1] = edges.slice(4 * i);
        boxes[name] = {x0, y0, x1, y1};
    });
    return boxes;
}

function readNode(raw, index, parent) {
    const at = (raw.at || [0, 0]).map(Number);
    const origin = parent ? {x: parent.origin.x + at[0], y: parent.origin.y + at[1]} : {x: 0, y: 0};
    return {
        index, parent, at, origin,
        depth: raw.depth,
        place: 0, // among siblings of the same type, from 1; the root has none
        row: 0, // among all siblings, from 0
        children: [],
        type: textOf(raw.type),
        id: raw.id ? textOf(raw.id) : '',
        classes: textsOf(raw.classes),
        pseudoClasses: textsOf(raw.pseudoClasses),
        boxes: Number.isFinite(origin.x) && Number.isFinite(origin.y) ? readBoxes(raw.boxes) : null,
        raw,
    };
}

function readNodes() {
    const nodes = [];
    const path = []; // from the root to the last node, with the places that its children have taken
    for (const raw of data.nodes) {
        path.length = raw.depth;
        const above = path[raw.depth - 1];
        const node = readNode(raw, nodes.length, above ? above.node : null);
        if (above) {
            node.place = (above.places.get(node.type) || 0) + 1;
            above.places.set(node.type, node.place);
            node.row = above.node.children.push(node) - 1;
        }
        path.push({node, places: new Map()});
        nodes.push(node);
    }
    return nodes;
}

const nodes = readNodes();

/** Types and places: "/scene/panel[2]/button[1]". */
function pathOf(node) {
    const steps = [];
    for (let step = node; step; step = step.parent)
        steps.push(step.type + (step.place ? '[' + step.place + ']' : ''));
    return '/' + steps.reverse().join('/');
}

/** The identity as a selector has it. */
function labelOf(node) {
    return node.type + (node.id ? '#' + node.id : '') + node.classes.map((name) => '.' + name).join('') +
        node.pseudoClasses.map((name) => ':' + name).join('');
}

/** A box in the coordinates of the root. */
function placedBox(node, name) {
    const {x0, y0, x1, y1} = node.boxes[name];
    const {x, y} = node.origin;
    return {x0: x0 + x, y0: y0 + y, x1: x1 + x, y1: y1 + y};
}

/** [{name, text, layers: [{layer, text}, ...highest first]}] */
function attributesOf(list) {
    return data.lists[list].map((number) => {
        const [name, text, ...pairs] = data.attributes[number];
        const layers = [];
        for (let i = 0; i < pairs.length; i += 2)
            layers.unshift({layer: pairs[i], text: textOf(pairs[i + 1])});
        return {name: textOf(name), text: textOf(text), layers};
    });
}

/** The text that stands in a node; empty where there is none. */
function contentOf(node) {
    for (const number of data.lists[node.raw.set]) {
        const [name, text] = data.attributes[number];
        if (textOf(name) === 'text')
            return textOf(text);
    }
    return '';
}

function candidateOf(number, outcome) {
    const [declaration, selector, origin, ids, classes, types, via, value] = data.candidates[number];
    const [property, declared, important, file, line] = data.declarations[declaration];
    return {
        outcome, origin, ids, classes, types, line,
        selector: textOf(selector),
        via: textOf(via),
        value: textOf(value),
        property: textOf(property),
        declared: textOf(declared),
        important: important === 1,
        file: textOf(file),
    };
}

/** The candidates for a property, strongest first. Chains share their ends; chain 0 is the end of all. */
function candidatesOf(first) {
    const candidates = [];
    for (let chain = first; chain;) {
        const [candidate, outcome, next] = data.chains[chain];
        candidates.push(candidateOf(candidate, outcome));
        chain = next;
    }
    return candidates;
}

/** Whether a declaration was the strongest, whatever became of it then. */
function isHolder(candidate) {
    return ![Outcome.LostByImportance, Outcome.LostBySpecificity, Outcome.LostByOrder].includes(candidate.outcome);
}

/** [{property, candidates, winner, longhands}]: every property that a declaration reached; of a shorthand with the
    longhands that only it reached. */
function contestsOf(node) {
    const contests = data.lists[node.raw.contests].map((number) => {
        const [property, chain] = data.contests[number];
        const candidates = candidatesOf(chain);
        return {property: textOf(property), candidates, winner: candidates.find(isHolder) || candidates[0], longhands: []};
    });
    const byProperty = new Map(contests.map((contest) => [contest.property, contest]));
    return contests.filter((contest) => {
        const shorthand = byProperty.get(contest.winner.via);
        const isPart = shorthand && shorthand !== contest && contest.candidates.every((candidate) => candidate.via);
        if (isPart)
            shorthand.longhands.push(contest);
        return !isPart;
    });
}
