// Values as text, with a sample beside each colour.

/** Colours as values and attributes write them: of 0 to 255 or percent, and where it says so, premultiplied. */
const colorForm = /rgba(_pma)?\(([\d.]+)(%?), ([\d.]+)%?, ([\d.]+)%?, ([\d.]+)\)/g;

/** The red, green and blue of a colour, 0 to 255 and straight, and its alpha, 0 to 1. */
function readColor([, isPremultiplied, red, percent, green, blue, alpha]) {
    const scale = (percent ? 2.55 : 1) / (isPremultiplied ? Math.max(Number(alpha), 1e-6) : 1);
    const channels = [red, green, blue].map((channel) => Math.round(Math.min(Number(channel) * scale, 255)));
    return {channels, alpha: Number(Number(alpha).toFixed(3))};
}

/** A colour as people write it. */
function colorText({channels, alpha}) {
    if (alpha === 1)
        return '#' + channels.map((channel) => channel.toString(16).padStart(2, '0')).join('');
    const isNone = alpha === 0 && channels.every((channel) => channel === 0);
    return isNone ? 'transparent' : `rgba(${channels.join(', ')}, ${alpha})`;
}

function makeSample(color) {
    const sample = make('i', 'sample');
    sample.style.setProperty('--sample', `rgba(${color.channels.join(', ')}, ${color.alpha})`);
    return sample;
}

/** The text of a value; its title is the text as it came. */
function makeValue(text, classes = 'value') {
    const value = make('span', classes);
    let done = 0;
    const addText = (end) => {
        if (end > done)
            value.append(make('span', 'text', text.slice(done, end)));
    };
    for (const found of text.matchAll(colorForm)) {
        const color = readColor(found);
        addText(found.index);
        value.append(makeSample(color), make('span', 'text', colorText(color)));
        done = found.index + found[0].length;
    }
    addText(text.length);
    if (text === '')
        value.append(make('span', 'text none', 'empty'));
    value.title = visible(text);
    return value;
}
