// What the declarations of the sheets came to at the selected node: for every property the one that won, and below it
// all that competed, with the reason why they lost.

const openProperties = new Set(); // stay open from node to node
let isAllOpen = false;
let filterText = '';

function passesFilter(name) {
    return name.toLowerCase().includes(filterText);
}

function specificityText(candidate) {
    return `(${candidate.ids}, ${candidate.classes}, ${candidate.types})`;
}

function placeText(candidate) {
    return candidate.file ? baseName(candidate.file) + (candidate.line ? ':' + candidate.line : '') : '';
}

/** Why a declaration does not show. */
function reasonText(candidate, winner) {
    switch (candidate.outcome) {
    case Outcome.LostByImportance:
        return 'normal, against !important';
    case Outcome.LostBySpecificity:
        return candidate.origin === winner.origin
            ? `less specific than ${specificityText(winner)}`
            : `of a lower origin than ${winner.origin}`;
    case Outcome.LostByOrder:
        return 'as specific, but earlier';
    case Outcome.Refused:
        return 'the attribute does not take this value';
    case Outcome.OverriddenByProgram:
        return 'the scene itself sets this attribute';
    case Outcome.OverriddenByTransition:
        return 'a running transition shows another value';
    case Outcome.NotServed:
        return 'the node has no such attribute';
    default:
        return 'wins';
    }
}

/** The word beside a property whose strongest declaration does not show. */
const shortReasons = {
    [Outcome.Refused]: 'refused',
    [Outcome.OverriddenByProgram]: 'user',
    [Outcome.OverriddenByTransition]: 'animation',
    [Outcome.NotServed]: 'no attribute',
};

function makePlace(candidate) {
    if (!candidate.line)
        return make('span', 'place none', placeText(candidate));
    const button = make('button', 'place', placeText(candidate));
    button.type = 'button';
    button.title = visible(candidate.file + (candidate.line ? ':' + candidate.line : ''));
    button.addEventListener('click', () => showSource(candidate.file, candidate.line));
    return button;
}

function makeCandidate(candidate, contest) {
    const wins = candidate.outcome === Outcome.Wins;
    const item = make('li', wins ? 'candidate wins' : 'candidate loses');
    const line = make('div', 'line');
    const value = candidate.via ? candidate.declared : candidate.value;
    line.append(makeValue((candidate.via ? candidate.via + ': ' : '') + value));
    if (candidate.important)
        line.append(make('span', 'important', '!important'));
    line.append(makePlace(candidate));
    const origin = candidate.origin === 1 ? '' : 'origin ' + candidate.origin;
    const because = make('div', 'because');
    because.append(make('span', 'selector', candidate.selector || '(no rule)'),
        make('span', 'specificity', specificityText(candidate)), make('span', 'origin', origin),
        make('span', 'reason', reasonText(candidate, contest.winner)));
    item.append(line, because);
    return item;
}

/** The longhands that a shorthand alone reached, a line each. */
function makeLonghands(contest) {
    const list = make('ul', 'longhands');
    for (const longhand of contest.longhands) {
        const item = make('li', 'longhand', '');
        item.append(make('span', 'property', longhand.property));
        if (longhand.longhands.length === 0)
            item.append(makeValue(longhand.winner.value), ...makeStatus(longhand.winner));
        list.append(item);
    }
    return list;
}

function makeStatus(winner) {
    return shortReasons[winner.outcome] ? [make('span', 'status', shortReasons[winner.outcome])] : [];
}

function makeContest(contest, effective) {
    const {property, candidates, winner} = contest;
    const isOpen = isAllOpen || openProperties.has(property);
    const wins = winner.outcome === Outcome.Wins;
    const item = make('li', wins ? 'contest' : 'contest beaten');
    const toggle = make('button', 'toggle');
    toggle.type = 'button';
    toggle.append(make('span', 'twist'), make('span', 'property', property));
    if (candidates.length > 1)
        toggle.append(make('span', 'more', '+' + (candidates.length - 1)));
    toggle.setAttribute('aria-expanded', isOpen);
    toggle.title = counted(candidates.length, 'candidate');
    const value = makeValue(winner.value, wins ? 'value' : 'value struck');
    const row = make('div', 'contest-row');
    row.append(toggle, value);
    if (!wins && effective.has(property) && winner.outcome !== Outcome.NotServed)
        row.append(makeValue(effective.get(property)));
    row.append(...makeStatus(winner), makePlace(winner));
    const details = make('div', 'details');
    details.append(make('ol', 'candidates', ...candidates.map((candidate) => makeCandidate(candidate, contest))));
    if (contest.longhands.length > 0)
        details.append(makeLonghands(contest));
    details.hidden = !isOpen;
    toggle.addEventListener('click', () => {
        details.hidden = !details.hidden;
        toggle.setAttribute('aria-expanded', !details.hidden);
        if (details.hidden)
            openProperties.delete(property);
        else
            openProperties.add(property);
    });
    item.append(row, details);
    return item;
}

function paintCascade() {
    const node = selection.node;
    const effective = new Map(attributesOf(node.raw.set).map((attribute) => [attribute.name, attribute.text]));
    const isShown = (contest) => passesFilter(contest.property) || contest.longhands.some(isShown);
    const contests = contestsOf(node).filter(isShown);
    const nothing = filterText ? 'None has a name like this.' : 'No declaration of a sheet reaches this node.';
    byId('cascade').replaceChildren(...contests.map((contest) => makeContest(contest, effective)),
        ...(contests.length === 0 ? [make('li', 'note', nothing)] : []));
}

byId('expand-all').addEventListener('click', (event) => {
    isAllOpen = !isAllOpen;
    openProperties.clear();
    event.currentTarget.setAttribute('aria-pressed', isAllOpen);
    paintCascade();
});

const filter = byId('filter');

function applyFilter() {
    filterText = filter.value.trim().toLowerCase();
    paintCascade();
    paintAttributes();
}

filter.addEventListener('input', applyFilter);
filter.addEventListener('keydown', (event) => {
    if (event.key !== 'Escape')
        return;
    event.preventDefault();
    event.stopPropagation(); // elsewhere it ends the search
    filter.value = '';
    applyFilter();
});

onSelection((what) => {
    if (what === 'node')
        paintCascade();
});
