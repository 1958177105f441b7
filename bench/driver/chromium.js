// What the page does that Chromium is measured with. The script that drives it calls these functions.

// Calls work, which is so many calls of what is measured. The marks reach the trace with the processor time of the
// thread, which has no part in what else the machine does.
function measureBatch(calls, work) {
    performance.mark(`begin ${calls}`);
    work();
    performance.mark('end');
}

// Measures one call of step in batches that are long enough for the clock.
function measure(step) {
    const batch = calls => {
        for (let i = 0; i < calls; ++i)
            step();
    };
    const secondsOf = work => {
        const start = performance.now();
        work();
        return (performance.now() - start) / 1000;
    };
    step();
    let calls = 1;
    while (secondsOf(() => batch(calls)) < 0.01)
        calls *= 2;
    let measured = 0;
    for (let batches = 0; (measured < 0.2 || batches < 3) && measured < 3; ++batches)
        measured += secondsOf(() => measureBatch(calls, () => batch(calls)));
}

// Brings the styles of all elements of a document up to date and lays nothing out: which animations run depends on
// the styles.
function flushStyles(page) {
    page.getAnimations();
}

// Makes sheets of a text. replaceSync() parses the declarations at once.
function parse(text) {
    measure(() => new CSSStyleSheet().replaceSync(text));
}

// A document of its own with that sheet in use, which has been indexed for its first element.
function makeDocument(text) {
    const frame = document.createElement('iframe');
    frame.width = 1024;
    frame.height = 768;
    document.body.appendChild(frame);
    const sheet = new frame.contentWindow.CSSStyleSheet();
    sheet.replaceSync(text);
    const page = frame.contentDocument;
    page.adoptedStyleSheets = [sheet];
    page.body.appendChild(page.createElement('div'));
    page.body.offsetTop;
    return page;
}

// The elements of a tree, a line each: place of the parent, type, id or "-", classes separated by commas.
function makeElements(page, tree) {
    const elements = [];
    for (const line of tree.trimEnd().split('\n')) {
        const [parent, type, id, classes] = line.split(' ');
        const element = page.createElement(type);
        if (id !== '-')
            element.id = id;
        if (classes)
            element.className = classes.replaceAll(',', ' ');
        if (parent >= 0)
            elements[parent].appendChild(element);
        elements.push(element);
    }
    return elements;
}

// A tree that is ready to be attached to its document.
function prepareTree(sheet, tree) {
    globalThis.page = makeDocument(sheet);
    globalThis.elements = makeElements(page, tree);
}

function attachTree() {
    page.body.appendChild(elements[0]);
    flushStyles(page);
    page.body.offsetTop; // lays out
}

function dropTree() {
    page.defaultView.frameElement.remove();
    page = elements = null;
}

// The element, not the root, that has most nearly one of a hundred elements in its subtree.
function hundredth() {
    const wanted = Math.floor(elements.length / 100);
    const distance = element => Math.abs(element.getElementsByTagName('*').length + 1 - wanted);
    // Only those that have any chance: counting the subtrees of all would take long.
    return elements.slice(1).filter(element => element.childElementCount > 0)
        .reduce((best, one) => distance(one) < distance(best) ? one : best);
}

const places = {
    leaf: () => elements[elements.length - 1],
    hundredth,
    root: () => elements[0],
};

// Switches a class on and off, each time with all styles up to date after it.
function toggle(place, name) {
    const element = places[place]();
    let on = false;
    measure(() => {
        on = !on;
        element.classList.toggle(name, on);
        flushStyles(page);
    });
}

// Adds children beside that many, one by one, each time with its style up to date after it.
function addChildren(siblings) {
    const parent = page.body.appendChild(page.createElement('div'));
    const makeChild = () => {
        const child = page.createElement('div');
        child.className = 'c1 c2 c3';
        return child;
    };
    for (let i = 0; i < siblings; ++i)
        parent.appendChild(makeChild());
    flushStyles(page);
    for (let i = 0; i < 9; ++i) {
        const children = Array.from({length: 100}, makeChild);
        measureBatch(children.length, () => {
            for (const child of children) {
                parent.appendChild(child);
                flushStyles(page);
            }
        });
        children.forEach(child => child.remove());
        flushStyles(page);
    }
}
