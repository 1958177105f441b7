// Selectors of the search, parsed and matched as style sheets are: types and ids by their characters, classes in lower
// case, pseudo-classes by what is switched on, and escapes as they are written.

const escapeForm = '\\\\[0-9a-fA-F]{1,6}[ \\t\\n]?|\\\\[^\\n0-9a-fA-F]';
const nameForm = `(?:[-\\w\\u0080-\\u{10ffff}]|${escapeForm})+`;
const tokenForms = [
    ['combinator', /^\s*([>,])\s*/u],
    ['blank', /^\s+/u],
    ['id', new RegExp(`^#(${nameForm})`, 'u')],
    ['class', new RegExp(`^\\.(${nameForm})`, 'u')],
    ['pseudoClass', new RegExp(`^:(${nameForm})(?!\\()`, 'u')],
    ['any', /^\*/u],
    ['type', new RegExp(`^(${nameForm})`, 'u')],
];

function lowerCase(name) {
    return name.replace(/[A-Z]/g, (letter) => letter.toLowerCase());
}

function emptyCompound(combinator) {
    return {combinator, isEmpty: true, type: '', ids: [], classes: [], pseudoClasses: []};
}

function addToCompound(compound, kind, name) {
    if ((kind === 'type' || kind === 'any') && !compound.isEmpty)
        throw new Error('a type comes first');
    compound.isEmpty = false;
    if (kind === 'type')
        compound.type = name;
    else if (kind === 'id')
        compound.ids.push(name);
    else if (kind === 'class')
        compound.classes.push(lowerCase(name));
    else if (kind === 'pseudoClass')
        compound.pseudoClasses.push(name);
}

/** Parses a list of selectors. Throws an Error that says where it ends to be one.
    @return [[compound, ...leftmost first], ...] */
function parseSelectors(text) {
    const selectors = [[emptyCompound('')]];
    let rest = text.trim();
    while (rest) {
        const [kind, found] = nextToken(rest);
        rest = rest.slice(found[0].length);
        const selector = selectors[selectors.length - 1];
        const compound = selector[selector.length - 1];
        const isEnd = kind === 'combinator' || kind === 'blank';
        if (isEnd && (compound.isEmpty || !rest))
            throw new Error('something is missing beside “' + (found[1] || ' ') + '”');
        if (kind === 'combinator' && found[1] === ',')
            selectors.push([emptyCompound('')]);
        else if (isEnd)
            selector.push(emptyCompound(found[1] || ' '));
        else
            addToCompound(compound, kind, found[1] || '');
    }
    return selectors;
}

function nextToken(text) {
    for (const [kind, form] of tokenForms) {
        const found = form.exec(text);
        if (found)
            return [kind, found];
    }
    throw new Error('“' + text.slice(0, 12) + '” is not understood');
}

function matchesCompound(node, compound) {
    return (!compound.type || compound.type === node.type) && compound.ids.every((id) => id === node.id) &&
        compound.classes.every((name) => node.classes.includes(name)) &&
        compound.pseudoClasses.every((name) => node.pseudoClasses.includes(name));
}

/** The nodes that a whole selector matches. Each compound is tried once at each node. */
function nodesOfSelector(selector) {
    let reached = null; // by the compounds so far, by index
    for (const compound of selector) {
        const before = reached;
        const above = before && reachedAbove(before, compound.combinator);
        reached = nodes.map((node) => (!above || above[node.index]) && matchesCompound(node, compound));
    }
    return reached;
}

/** By node: whether its parent, or for a blank any of its ancestors, was reached. */
function reachedAbove(reached, combinator) {
    const above = [];
    for (const {index, parent} of nodes) {
        const isInside = parent && combinator === ' ' && above[parent.index];
        above[index] = Boolean(parent && (reached[parent.index] || isInside));
    }
    return above;
}

/** The nodes that any selector of a list matches, in document order. Throws an Error where the text is none. */
function nodesMatching(text) {
    const found = parseSelectors(text).map(nodesOfSelector);
    return nodes.filter((node) => found.some((reached) => reached[node.index]));
}

/** The nodes with a text in their names or their content, in any case. */
function nodesWithText(text) {
    const wanted = text.trim().toLowerCase();
    return nodes.filter((node) => (labelOf(node) + '\n' + contentOf(node)).toLowerCase().includes(wanted));
}
