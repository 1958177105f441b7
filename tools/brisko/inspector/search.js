// The search: by selector or by text. The matches are marked in the tree; Enter goes through them.

const query = byId('query');

function findMatches(text) {
    if (!text.trim())
        return [];
    return byId('search-by').value === 'text' ? nodesWithText(text) : nodesMatching(text);
}

function search() {
    let complaint = '';
    let matches = [];
    try {
        matches = findMatches(query.value);
    } catch (error) {
        complaint = error.message;
    }
    query.setAttribute('aria-invalid', complaint !== '');
    change('matches', new Set(matches));
    if (matches.length > 0 && !selection.matches.has(selection.node))
        select(matches[0]);
    sayFound(complaint);
}

function sayFound(complaint = '') {
    const matches = [...selection.matches];
    const place = matches.indexOf(selection.node);
    const text = place < 0 ? String(matches.length) : `${place + 1} of ${matches.length}`;
    say(byId('found'), complaint || (query.value.trim() ? text : ''));
    byId('found').title = visible(complaint);
    byId('search').classList.toggle('searching', query.value.trim() !== '');
}

/** Selects the match after or before the selected node, round the ends. */
function step(direction) {
    const matches = [...selection.matches];
    if (matches.length === 0)
        return;
    const behind = matches.findIndex((node) => node.index > selection.node.index);
    const here = matches.indexOf(selection.node);
    const after = behind < 0 ? 0 : behind;
    const before = (here < 0 ? (behind < 0 ? matches.length : behind) : here) - 1;
    select(direction > 0 ? matches[after] : matches[(before + matches.length) % matches.length]);
}

function endSearch() {
    query.value = '';
    search();
    showPanel('tree');
    tree.focus();
}

query.addEventListener('input', search);
byId('search-by').addEventListener('change', () => {
    query.placeholder = byId('search-by').value === 'text' ? 'a word in a name or a text' : 'panel > .primary:hover';
    search();
    query.focus();
});
query.addEventListener('keydown', (event) => {
    if (event.key === 'Enter')
        step(event.shiftKey ? -1 : 1);
    else if (event.key === 'ArrowDown')
        tree.focus();
    else
        return;
    event.preventDefault();
});
byId('search').addEventListener('submit', (event) => event.preventDefault());
byId('next').addEventListener('click', () => step(1));
byId('previous').addEventListener('click', () => step(-1));

onSelection((what) => {
    if (what === 'node')
        sayFound();
});
