// What runs in the browser, in an XHTML page: there types, ids and classes match in exactly their case.

// An element with all below it, from [type, id, classes, children].
function makeElement([type, id, classes, children]) {
    const element = document.createElement(type);
    if (id)
        element.id = id;
    if (classes)
        element.className = classes;
    element.append(...children.map(makeElement));
    return element;
}

// The values of the properties on every element of a tree, in the order of the document. The sheets see nothing but
// the tree, which is not laid out.
function computedValues(tree, sheets, properties) {
    const host = document.createElement('div');
    host.style.display = 'none';
    const shadow = host.attachShadow({mode: 'open'});
    for (const text of sheets) {
        const style = document.createElement('style');
        style.textContent = text;
        shadow.append(style);
    }
    const root = makeElement(tree);
    shadow.append(root);
    document.body.append(host);
    const values = [root, ...root.querySelectorAll('*')].map(element => {
        const computed = getComputedStyle(element);
        return properties.map(property => computed.getPropertyValue(property));
    });
    host.remove();
    return values;
}
