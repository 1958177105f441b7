// The picture of the scene with the boxes of the selected node over it, and the outline of the one pointed at.

const stage = byId('stage');
const canvas = byId('canvas');
const zoomSteps = [0.1, 0.25, 0.33, 0.5, 0.67, 0.75, 1, 1.25, 1.5, 2, 3, 4, 6, 8];
const [pictureX, pictureY, pictureWidth, pictureHeight] = data.picture.place;
let zoom = 1;
let isFitted = true;

function shape(name, attributes = {}) {
    const element = document.createElementNS('http://www.w3.org/2000/svg', name);
    for (const [key, value] of Object.entries(attributes))
        element.setAttribute(key, value);
    return element;
}

const overlay = shape('svg', {
    'class': 'overlay',
    viewBox: `${pictureX} ${pictureY} ${pictureWidth} ${pictureHeight}`,
    preserveAspectRatio: 'none',
    'aria-hidden': 'true',
});
const outlines = shape('path', {'class': 'outlines'});
const selectedBoxes = shape('g', {'class': 'selected'});
const hoveredBox = shape('g', {'class': 'pointed'});
overlay.append(outlines, selectedBoxes, hoveredBox);
byId('picture').src = data.picture.url;
canvas.append(overlay);

function rectPath({x0, y0, x1, y1}) {
    return `M${x0} ${y0}H${x1}V${y1}H${x0}Z`;
}

/** What of one box stands out of the one in it, as four strips: a margin below zero leaves none. */
function framePath(outer, inner) {
    const strips = [
        {x0: outer.x0, y0: outer.y0, x1: outer.x1, y1: inner.y0},
        {x0: outer.x0, y0: inner.y1, x1: outer.x1, y1: outer.y1},
        {x0: outer.x0, y0: Math.max(inner.y0, outer.y0), x1: inner.x0, y1: Math.min(inner.y1, outer.y1)},
        {x0: inner.x1, y0: Math.max(inner.y0, outer.y0), x1: outer.x1, y1: Math.min(inner.y1, outer.y1)},
    ];
    return strips.filter((strip) => strip.x1 > strip.x0 && strip.y1 > strip.y0).map(rectPath).join('');
}

function rectOf(box, name) {
    const rect = {x: box.x0, y: box.y0, width: Math.max(box.x1 - box.x0, 0), height: Math.max(box.y1 - box.y0, 0)};
    return shape('rect', {...rect, 'class': 'edge', 'data-box': name});
}

function paintSelected() {
    const node = selection.node;
    selectedBoxes.replaceChildren();
    if (!node || !node.boxes)
        return;
    const placed = boxNames.map((name) => placedBox(node, name));
    boxNames.forEach((name, i) => {
        const path = i === 0 ? rectPath(placed[0]) : framePath(placed[i], placed[i - 1]);
        selectedBoxes.append(shape('path', {'class': 'area ' + name, d: path}));
    });
    boxNames.forEach((name, i) => selectedBoxes.append(rectOf(placed[i], name)));
}

function paintHovered() {
    const node = selection.hovered;
    hoveredBox.replaceChildren();
    if (node && node.boxes)
        hoveredBox.append(rectOf(placedBox(node, 'border'), 'hovered'));
    byId('hovered').replaceChildren(...(node ? [...nameParts(node), make('span', 'note', sizeText(node))] : []));
}

/** Width and height of the border box. */
function sizeText(node) {
    if (!node.boxes)
        return 'no finite box';
    const {x0, y0, x1, y1} = node.boxes.border;
    return pixels(x1 - x0) + ' × ' + pixels(y1 - y0);
}

function paintOutlines() {
    const shown = byId('show-outlines').checked ? nodes.filter((node) => node.boxes) : [];
    outlines.setAttribute('d', shown.map((node) => rectPath(placedBox(node, 'border'))).join(''));
}

function setZoom(factor) {
    zoom = factor;
    canvas.style.width = pictureWidth * zoom + 'px';
    canvas.style.height = pictureHeight * zoom + 'px';
    say(byId('zoom-fit'), Math.round(zoom * 100) + ' %');
}

function fitZoom() {
    const margin = 2 * parseFloat(getComputedStyle(stage).paddingLeft);
    const width = (stage.clientWidth - margin) / pictureWidth;
    const height = (stage.clientHeight - margin) / pictureHeight;
    isFitted = true;
    setZoom(Math.max(Math.min(width, height, 4), 0.02));
}

/** Goes to the next step of zoom; the middle of what is seen stays where it is. */
function stepZoom(direction) {
    const steps = direction > 0 ? zoomSteps : [...zoomSteps].reverse();
    const next = steps.find((step) => (step - zoom) * direction > 1e-6);
    if (!next)
        return;
    const middle = [stage.scrollLeft + stage.clientWidth / 2, stage.scrollTop + stage.clientHeight / 2];
    const factor = next / zoom;
    isFitted = false;
    setZoom(next);
    stage.scrollTo(middle[0] * factor - stage.clientWidth / 2, middle[1] * factor - stage.clientHeight / 2);
}

/** The nodes whose border boxes hold the place of a pointer, the topmost first. */
function nodesAt(event) {
    const area = overlay.getBoundingClientRect();
    const x = pictureX + (event.clientX - area.left) / zoom;
    const y = pictureY + (event.clientY - area.top) / zoom;
    const isHit = (node) => {
        const box = node.boxes && placedBox(node, 'border');
        return box && x >= box.x0 && x < box.x1 && y >= box.y0 && y < box.y1;
    };
    return nodes.filter(isHit).reverse();
}

function scrollToSelected() {
    const edge = selectedBoxes.querySelector('[data-box="border"]');
    if (!edge || isFitted)
        return;
    const box = edge.getBoundingClientRect();
    const view = stage.getBoundingClientRect();
    const isSeen = box.left < view.right && box.right > view.left && box.top < view.bottom && box.bottom > view.top;
    if (!isSeen)
        stage.scrollBy(box.left - view.left - view.width / 4, box.top - view.top - view.height / 4);
}

stage.addEventListener('mousemove', (event) => hover(nodesAt(event)[0] || null));
stage.addEventListener('mouseleave', () => hover(null));
stage.addEventListener('click', (event) => {
    const hit = nodesAt(event);
    const below = event.altKey ? hit[hit.indexOf(selection.node) + 1] : null;
    if (hit.length > 0)
        select(below || hit[0]);
});
byId('zoom-in').addEventListener('click', () => stepZoom(1));
byId('zoom-out').addEventListener('click', () => stepZoom(-1));
byId('zoom-fit').addEventListener('click', fitZoom);
byId('show-outlines').addEventListener('change', paintOutlines);
byId('show-boxes').addEventListener('change', (event) => overlay.classList.toggle('bare', !event.target.checked));
new ResizeObserver(() => isFitted && fitZoom()).observe(stage);
fitZoom();

onSelection((what) => {
    if (what === 'hovered')
        return paintHovered();
    if (what === 'node') {
        paintSelected();
        scrollToSelected();
    }
});
