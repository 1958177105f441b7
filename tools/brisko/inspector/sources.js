// The lines of the files that something is said about: what wins and loses at the selected node is marked, messages
// stand below their lines.

const sourceFile = byId('source-file');
const linesOfFile = new Map(data.sources.map((source) => [source.file, source.parts]));
const lineElements = new Map(); // of the shown file, by number
let markedLines = [];
let shownFile = null;
let shownLine = 0;

/** By line of a file: whether a declaration in it wins at the selected node, or loses. */
function fatesIn(file) {
    const fates = new Map();
    for (const number of data.lists[selection.node.raw.contests]) {
        const [, chain] = data.contests[number];
        for (const candidate of candidatesOf(chain)) {
            if (candidate.file === file && fates.get(candidate.line) !== 'won')
                fates.set(candidate.line, candidate.outcome === Outcome.Wins ? 'won' : 'lost');
        }
    }
    return fates;
}

function makeLine(number, text) {
    const line = make('div', 'line');
    line.dataset.line = number;
    line.append(make('span', 'number', number), make('code', '', text.replace(/\t/g, '    ')));
    return line;
}

/** The messages about lines of a file, by line. */
function remarksIn(file) {
    const remarks = new Map();
    for (const message of data.messages) {
        if (message.file === file && message.line)
            remarks.set(message.line, [...(remarks.get(message.line) || []), message]);
    }
    return remarks;
}

/** Puts the lines of a file into the panel, unless they are there. */
function paintFile(file) {
    if (file === shownFile)
        return;
    shownFile = file;
    lineElements.clear();
    const parts = linesOfFile.get(file);
    const remarks = remarksIn(file);
    const shown = document.createDocumentFragment();
    if (!parts)
        shown.append(make('p', 'note', file ? 'No lines of this file are here.' : 'Nothing to show.'));
    (parts || []).forEach(([first, ...texts], part) => {
        if (part > 0 || first > 1)
            shown.append(make('div', 'gap', '⋯'));
        texts.forEach((text, i) => {
            const line = makeLine(first + i, text);
            lineElements.set(first + i, line);
            shown.append(line);
            for (const message of remarks.get(first + i) || [])
                shown.append(make('div', 'remark ' + message.level, message.text));
        });
    });
    byId('lines').replaceChildren(shown);
    sourceFile.value = parts ? file : '';
}

/** Marks what the selected node makes of the lines, and the one that was asked for. */
function markLines() {
    for (const line of markedLines) {
        line.className = 'line';
        line.removeAttribute('aria-current');
    }
    markedLines = [];
    for (const [number, fate] of fatesIn(shownFile)) {
        const line = lineElements.get(number);
        if (line) {
            line.classList.add(fate);
            markedLines.push(line);
        }
    }
    const current = lineElements.get(shownLine);
    if (current) {
        current.setAttribute('aria-current', 'true');
        markedLines.push(current);
    }
}

function scrollToLine() {
    const line = byId('lines').querySelector('[aria-current]');
    if (line)
        byId('lines').scrollTop = line.offsetTop - byId('lines').clientHeight / 3;
}

/** Shows a line of a file without going to the panel. */
function openSource(file, line) {
    shownLine = line;
    paintFile(file);
    markLines();
    scrollToLine();
}

/** Shows a line of a file. */
function showSource(file, line) {
    showPanel('source');
    openSource(file, line);
}

for (const file of linesOfFile.keys()) {
    const option = make('option', '', file);
    option.value = file;
    sourceFile.append(option);
}
whenShown(byId('lines'), scrollToLine);
sourceFile.addEventListener('change', () => openSource(sourceFile.value, 0));

onSelection((what) => {
    if (what !== 'node')
        return;
    const winner = contestsOf(selection.node).map((contest) => contest.winner)
        .find((candidate) => candidate.outcome === Outcome.Wins && linesOfFile.has(candidate.file));
    if (winner)
        openSource(winner.file, winner.line);
    else
        openSource(shownFile || data.sources.map((source) => source.file)[0] || '', 0);
});
