// Texts of scenes and sheets reach the page through make() and say() only, as text, never as markup.

/** Control characters, and those that turn the direction of writing or end lines. */
const unseen = /[\u0000-\u001f\u007f-\u009f\u061c\u200e\u200f\u2028-\u202e\u2066-\u206f]/g;

/** The text with what cannot be seen written as escapes. */
function visible(text) {
    return String(text).replace(unseen, (character) => {
        const code = character.codePointAt(0);
        if (character === '\n')
            return '\\n';
        return code < 0x100 ? '\\x' + code.toString(16).padStart(2, '0') : '\\u' + code.toString(16).padStart(4, '0');
    });
}

/** Gives an element a text. */
function say(element, text) {
    element.textContent = visible(text);
    return element;
}

/** Makes an element with classes; content is elements and texts. */
function make(name, classes, ...content) {
    const element = document.createElement(name);
    if (classes)
        element.className = classes;
    if (content.length === 1 && !(content[0] instanceof Node))
        return say(element, content[0]);
    for (const part of content)
        element.append(part instanceof Node ? part : say(document.createElement('span'), part));
    return element;
}

function byId(id) {
    return document.getElementById(id);
}

/** A number of pixels, with what single precision adds to it rounded away. */
function pixels(value) {
    return Number.isFinite(value) ? String(Number(value.toFixed(2))) : String(value);
}

/** "1 node", "2 nodes" */
function counted(count, noun) {
    return count + ' ' + noun + (count === 1 ? '' : 's');
}

/** The last part of a path. */
function baseName(file) {
    return file.slice(file.lastIndexOf('/') + 1);
}
