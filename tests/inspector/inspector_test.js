// The inspector page as its readers use it: selecting, searching, what it shows of the cascade, and what it never does.
'use strict';

const assert = require('node:assert/strict');
const {after, test} = require('node:test');
const {pathToFileURL} = require('node:url');
const {briskoJson, close, inspect, open, player, selectedPath, sheetOptions, styledNodes, write} = require('./page.js');

const playerPage = inspect(player);
const playerNodes = styledNodes(player);

after(close);

/** Opens the page of the example, hands it to a test and checks that it was quiet. */
async function withPlayer(use, options) {
    const opened = await open(playerPage, options);
    await use(opened.page, opened);
    assert.deepEqual(opened.trouble, []);
    await opened.context.close();
}

function assertNear(actual, expected, tolerance, message) {
    actual.forEach((number, i) => assert.ok(Math.abs(number - expected[i]) <= tolerance,
        `${message}: ${actual} instead of ${expected}`));
}

test('the page asks for nothing but itself', async () => {
    await withPlayer(async (page, {requests}) => {
        await page.locator('#picture').evaluate((picture) => picture.decode());
        const others = requests.filter((url) => !url.startsWith('data:'));
        assert.deepEqual(others, [pathToFileURL(playerPage).href]);
    });
});

test('the first node is selected, or the one of the address', async () => {
    await withPlayer(async (page) => assert.equal(await selectedPath(page), '/player'));
    await withPlayer(async (page) => assert.equal(await selectedPath(page), '/player/controls[1]/button[2]'),
        {hash: '#/player/controls[1]/button[2]'});
});

test('a click in the picture selects the topmost box', async () => {
    await withPlayer(async (page) => {
        const picture = await page.locator('#picture').boundingBox();
        const scale = picture.width / playerNodes[0].boxes.size[0];
        const play = playerNodes.find((node) => node.id === 'play');
        const margin = playerNodes[0].boxes.margin;
        await page.mouse.click(picture.x + (play.x - margin[0] + 3) * scale, picture.y + (play.y - margin[1] + 3) * scale);
        assert.equal(await selectedPath(page), play.path);
        await page.keyboard.down('Alt');
        await page.mouse.click(picture.x + (play.x - margin[0] + 3) * scale, picture.y + (play.y - margin[1] + 3) * scale);
        await page.keyboard.up('Alt');
        assert.equal(await selectedPath(page), '/player/controls[1]');
    });
});

test('a click in the tree selects, and the arrow beside a node closes it', async () => {
    await withPlayer(async (page) => {
        await page.getByRole('treeitem', {name: 'cover#now.large'}).click();
        assert.equal(await selectedPath(page), '/player/panel[1]/cover[1]');
        const header = page.locator('#row-1');
        await header.locator('.twist').click();
        assert.equal(await header.getAttribute('aria-expanded'), 'false');
        assert.equal(await page.locator('#row-2').count(), 0);
        await header.locator('.twist').click();
        assert.equal(await page.locator('#row-2').count(), 1);
    });
});

test('keys go through the tree', async () => {
    await withPlayer(async (page) => {
        const steps = [
            ['ArrowDown', '/player/header[1]'], ['ArrowRight', '/player/header[1]/logo[1]'],
            ['ArrowDown', '/player/header[1]/title[1]'], ['ArrowUp', '/player/header[1]/logo[1]'],
            ['ArrowLeft', '/player/header[1]'], ['ArrowLeft', '/player/header[1]'], ['ArrowDown', '/player/panel[1]'],
            ['ArrowUp', '/player/header[1]'], ['ArrowRight', '/player/header[1]'],
            ['ArrowRight', '/player/header[1]/logo[1]'], ['End', playerNodes[playerNodes.length - 1].path],
            ['Home', '/player'], ['ArrowLeft', '/player'], ['ArrowDown', '/player'],
        ];
        await page.locator('#tree').focus();
        for (const [key, expected] of steps) {
            await page.keyboard.press(key);
            assert.equal(await selectedPath(page), expected, key);
        }
    });
});

test('the tree tells assistive software what is selected', async () => {
    await withPlayer(async (page) => {
        const tree = page.getByRole('tree', {name: 'Nodes of the scene'});
        await tree.focus();
        await page.keyboard.press('End');
        const active = await tree.getAttribute('aria-activedescendant');
        const row = page.locator('#' + active);
        assert.equal(await row.getAttribute('aria-selected'), 'true');
        assert.equal(await row.getAttribute('role'), 'treeitem');
        assert.equal(await row.getAttribute('aria-level'), '4');
        assert.equal(await page.locator('[role=treeitem][aria-selected=true]').count(), 1);
        const box = await row.boundingBox();
        const view = await tree.boundingBox();
        assert.ok(box.y >= view.y && box.y + box.height <= view.y + view.height + 1, 'the selected row is in sight');
    });
});

test('a selector finds what the command finds', async () => {
    const selectors = ['button', '*', '#play', '.current', 'track.current > name', 'controls button', 'panel .small.current',
        ':hover', 'button:hover:focus', 'player > panel, levels levels', 'TRACK', '.CURRENT', 'track name', 'panel > name',
        '#main.dark list > track:hover time', '.tracks *', 'none', '#\\70 lay'];
    await withPlayer(async (page) => {
        for (const selector of selectors) {
            let expected = [];
            try {
                expected = briskoJson('query', player.scene, ...sheetOptions(player), selector).paths;
            } catch (error) {
                assert.equal(error.status, 1, selector); // nothing matched
            }
            await page.locator('#query').fill(selector);
            const ids = expected.map((path) => 'row-' + playerNodes.findIndex((node) => node.path === path));
            const marked = await page.locator('.row.matching').evaluateAll((rows) => rows.map((row) => row.id));
            assert.deepEqual(marked, ids, selector);
            assert.match(await page.locator('#found').textContent(), new RegExp(`${expected.length}$`), selector);
        }
    }, {viewport: {width: 1280, height: 1500}}); // all rows are in sight
});

test('the search goes through its matches and ends with Escape', async () => {
    await withPlayer(async (page) => {
        await page.locator('body').press('/');
        await page.keyboard.type('track');
        const places = [];
        for (const key of ['Enter', 'Enter', 'Shift+Enter', 'Shift+Enter', 'Shift+Enter']) {
            places.push((await selectedPath(page)).slice(-2, -1));
            await page.keyboard.press(key);
        }
        assert.equal(places.join(' '), '1 2 3 2 1');
        assert.equal(await page.locator('#found').textContent(), '6 of 6');
        await page.keyboard.press('Escape');
        assert.equal(await page.locator('#query').inputValue(), '');
        assert.equal(await page.locator('.row.matching').count(), 0);
        assert.equal(await page.evaluate(() => document.activeElement.id), 'tree');
    });
});

test('a text finds names and contents in any case', async () => {
    await withPlayer(async (page) => {
        await page.locator('#search-by').selectOption('text');
        await page.locator('#query').fill('SOLAR');
        assert.equal(await selectedPath(page), '/player/panel[2]/list[1]/track[3]/name[1]');
        await page.locator('#query').fill('no such text');
        assert.equal(await page.locator('#found').textContent(), '0');
    });
});

test('a selector that is none says so', async () => {
    await withPlayer(async (page) => {
        for (const text of ['a >', '> a', 'a,,b', 'a[b]', ':not(a)', '.', 'a*', '#', '\u0000']) {
            await page.locator('#query').fill(text);
            assert.equal(await page.locator('#query').getAttribute('aria-invalid'), 'true', text);
            assert.notEqual(await page.locator('#found').textContent(), '', text);
        }
        await page.locator('#query').fill('a');
        assert.equal(await page.locator('#query').getAttribute('aria-invalid'), 'false');
    });
});

test('the boxes over the picture are those of the command', async () => {
    const names = ['content', 'padding', 'border', 'margin'];
    await withPlayer(async (page) => {
        await page.locator('#tree').focus();
        const picture = await page.locator('#picture').boundingBox();
        const corner = playerNodes[0].boxes.margin;
        const scale = picture.width / (corner[2] - corner[0]);
        for (const node of playerNodes) {
            assert.equal(await selectedPath(page), node.path);
            const shown = await page.locator('.selected .edge').evaluateAll((edges) => edges.map((edge) => {
                const {x, y, width, height} = edge.getBoundingClientRect();
                const own = ['x', 'y', 'width', 'height'].map((key) => Number(edge.getAttribute(key)));
                return {name: edge.dataset.box, own, onScreen: [x, y, width, height]};
            }));
            assert.deepEqual(shown.map(({name}) => name), names);
            for (const {name, own, onScreen} of shown) {
                const [x0, y0, x1, y1] = node.boxes[name];
                const size = [Math.max(x1 - x0, 0), Math.max(y1 - y0, 0)];
                assertNear(own, [node.x + x0, node.y + y0, ...size], 0.001, `${node.path} ${name}`);
                assertNear(onScreen, [picture.x + (node.x + x0 - corner[0]) * scale,
                    picture.y + (node.y + y0 - corner[1]) * scale, ...size.map((length) => length * scale)],
                1.1, `${node.path} ${name} on the screen`);
            }
            await page.keyboard.press('ArrowDown');
        }
    });
});

test('the diagram shows the widths round the content', async () => {
    await withPlayer(async (page) => {
        for (const [ring, widths] of [['margin', '– – – –'], ['border', '1 1 1 1'], ['padding', '8 31 8 31']]) {
            const shown = [];
            for (const side of ['top', 'right', 'bottom', 'left'])
                shown.push(await page.locator(`#boxes .ring.${ring} > .${side}`).textContent());
            assert.equal(shown.join(' '), widths, ring);
        }
        assert.equal(await page.locator('#boxes .ring.content').textContent(), '34 × 20');
    }, {hash: '#/player/controls[1]/button[2]'});
});

test('every property tells which line won and why the others lost', async () => {
    const scene = write('why.xml', '<s><a class="x" z-index="4"/></s>');
    const sheet = write('why.css', [
        'a { opacity: 0.1; z-index: 2; visibility: no-such }', '.x { opacity: 0.2 }', '.x { opacity: 0.3 }',
        '* { opacity: 0.4 !important; unknown: 1 }', 's { padding: 1px 2px }'].join('\n'));
    const {page, context, trouble} = await open(inspect({scene, sheets: [sheet]}), {hash: '#/s/a[1]'});
    const contest = (property) => page.locator('.contest', {has: page.locator(`.toggle .property:text-is("${property}")`)});
    assert.equal(await contest('opacity').locator('.contest-row .place').textContent(), 'why.css:4');
    assert.equal(await contest('opacity').locator('.candidate').first().isVisible(), false);
    await contest('opacity').locator('.toggle').click();
    const lines = await contest('opacity').locator('.candidate').evaluateAll((items) => items.map((item) =>
        ['.value', '.selector', '.specificity', '.reason', '.place'].map((part) => item.querySelector(part).textContent)));
    assert.deepEqual(lines, [
        ['0.4', '*', '(0, 0, 0)', 'wins', 'why.css:4'],
        ['0.3', '.x', '(0, 1, 0)', 'normal, against !important', 'why.css:3'],
        ['0.2', '.x', '(0, 1, 0)', 'normal, against !important', 'why.css:2'],
        ['0.1', 'a', '(0, 0, 1)', 'normal, against !important', 'why.css:1'],
    ]);
    assert.equal(await contest('z-index').locator('.status').textContent(), 'user');
    assert.deepEqual(await contest('z-index').locator('.contest-row .value').allTextContents(), ['2', '4']);
    assert.equal(await contest('visibility').locator('.status').textContent(), 'refused');
    assert.equal(await contest('unknown').locator('.status').textContent(), 'no attribute');
    await contest('opacity').locator('.contest-row .place').click();
    const current = page.locator('#lines [aria-current]');
    assert.equal(await current.getAttribute('data-line'), '4');
    assert.match(await current.textContent(), /opacity: 0\.4 !important/);
    assert.match(await page.locator('#lines [data-line="1"]').getAttribute('class'), /lost/);
    assert.match(await current.getAttribute('class'), /won/);
    await page.locator('#tree').focus();
    await page.keyboard.press('Home');
    assert.equal(await contest('padding').locator('.longhand').count(), 4);
    assert.deepEqual(trouble, []);
    await context.close();
});

test('attributes stand on their layers', async () => {
    await withPlayer(async (page) => {
        const row = page.locator('.attribute', {has: page.locator('.property:text-is("z-index")')});
        const layers = await row.locator('.layer').evaluateAll((items) => items.map((item) =>
            item.className + ' ' + item.querySelector('.tag').textContent + ' ' + item.querySelector('.text').textContent));
        assert.deepEqual(layers, ['layer wins user 7', 'layer loses style 3', 'layer loses default 0']);
        await page.locator('#filter').fill('z-in');
        assert.deepEqual(await page.locator('#attributes > .attribute .property').allTextContents(), ['z-index']);
        assert.deepEqual(await page.locator('#cascade .toggle .property').allTextContents(), ['z-index']);
    }, {hash: '#/player/controls[1]/button[3]'});
});

test('Escape in the filter of properties clears it and nothing else', async () => {
    await withPlayer(async (page) => {
        await page.locator('#tabs [data-shows=tree]').click();
        await page.locator('#query').fill('track');
        await page.locator('#tabs [data-shows=node]').click();
        const count = await page.locator('#cascade .toggle').count();
        await page.locator('#filter').fill('no such property');
        assert.equal(await page.locator('#cascade .toggle').count(), 0);
        await page.keyboard.press('Escape');
        assert.equal(await page.locator('#filter').inputValue(), '');
        assert.equal(await page.locator('#cascade .toggle').count(), count);
        assert.ok(count > 0);
        assert.equal(await page.locator('#query').inputValue(), 'track');
        assert.ok(await page.locator('#node-panel').isVisible());
        assert.equal(await page.evaluate(() => document.activeElement.id), 'filter');
    }, {viewport: {width: 400, height: 800}});
});

test('diagnostics lead to their lines', async () => {
    const {messages} = briskoJson('style', player.scene, ...sheetOptions(player));
    const different = new Set(messages.map((message) => message.text)).size;
    await withPlayer(async (page) => {
        await page.locator('#below').getByRole('tab', {name: 'Diagnostics'}).click();
        assert.equal(await page.locator('.message').count(), different);
        const place = page.locator('.message .place', {hasText: 'mistakes.css:12'}).first();
        await place.click();
        assert.equal(await page.locator('#lines [aria-current]').getAttribute('data-line'), '12');
        assert.ok(await page.locator('#lines .remark').count() > 0);
    });
});

test('nothing is wider than the window', async () => {
    for (const [width, height] of [[1280, 800], [1024, 700], [768, 1024], [400, 800], [320, 600]]) {
        const {page, context, trouble} = await open(playerPage, {viewport: {width, height}, hash: '#/player/controls[1]/button[2]'});
        const panels = width >= 1024 ? ['node'] : ['tree', 'node', 'source', 'messages'];
        for (const name of panels) {
            if (width < 1024)
                await page.locator(`#tabs [data-shows=${name}]`).click();
            const sizes = await page.evaluate(() => [document.documentElement.scrollWidth, document.body.scrollWidth,
                document.documentElement.scrollHeight, ...[...document.querySelectorAll('#node-body, #messages, #bar')]
                    .map((part) => part.scrollWidth - part.clientWidth)]);
            const [page0, body, tall, ...rest] = sizes;
            assert.ok(page0 <= width && body <= width && tall <= height, `${name} at ${width}: ${sizes}`);
            assert.ok(rest.every((beyond) => beyond <= 0), `${name} at ${width}: ${sizes}`);
        }
        assert.deepEqual(trouble, []);
        await context.close();
    }
});

test('a narrow window shows one panel at a time', async () => {
    await withPlayer(async (page) => {
        const shown = async () => {
            const names = [];
            for (const name of ['picture', 'tree', 'node', 'source', 'messages']) {
                if (await page.locator(`#${name}-panel`).isVisible())
                    names.push(name);
            }
            return names.join(' ');
        };
        assert.equal(await shown(), 'picture node');
        await page.locator('#tabs [data-shows=node]').focus();
        await page.keyboard.press('ArrowLeft');
        assert.equal(await shown(), 'picture tree');
        await page.locator('#row-1').click();
        await page.locator('#tabs [data-shows=node]').click();
        await page.locator('.contest-row .place').first().click();
        assert.equal(await shown(), 'picture source');
        await page.locator('#tabs [data-shows=messages]').click();
        assert.equal(await shown(), 'picture messages');
    }, {viewport: {width: 400, height: 800}});
});

test('what comes into sight shows what is selected', async () => {
    const isInside = (locator, outer) => locator.evaluate((element, view) => {
        const own = element.getBoundingClientRect();
        const around = document.querySelector(view).getBoundingClientRect();
        return own.top >= around.top && own.bottom <= around.bottom;
    }, outer);
    await withPlayer(async (page) => {
        await page.locator('#tabs [data-shows=source]').click();
        await page.waitForFunction(() => document.querySelector('#lines').scrollTop > 0);
        assert.ok(await isInside(page.locator('#lines [aria-current]'), '#lines'));
        await page.locator('#tabs [data-shows=tree]').click();
        await page.waitForFunction(() => document.querySelector('#tree').scrollTop > 0);
        assert.ok(await isInside(page.locator('.row[aria-selected=true]'), '#tree'));
    }, {viewport: {width: 400, height: 600}, hash: '#/player/controls[1]/button[3]'});
});

/** Contrast of two colours (WCAG 2.1). */
function contrast(a, b) {
    const luminance = (color) => {
        const [red, green, blue] = color.match(/[\d.]+/g).map((channel) => {
            const part = Number(channel) / 255;
            return part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4;
        });
        return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
    };
    const [low, high] = [luminance(a), luminance(b)].sort((x, y) => x - y);
    return (high + 0.05) / (low + 0.05);
}

test('texts can be read on light and on dark', async () => {
    const grounds = new Set();
    for (const colorScheme of ['light', 'dark']) {
        await withPlayer(async (page) => {
            await page.locator('#expand-all').click();
            const colors = await page.evaluate(() => {
                const groundOf = (element) => {
                    const color = getComputedStyle(element).backgroundColor;
                    return color === 'rgba(0, 0, 0, 0)' && element.parentElement ? groundOf(element.parentElement) : color;
                };
                return ['.type', '.id', '.class', '.pseudo', '.note', '.property', '.value', '.place', '.reason', '.specificity',
                    '.tag', '.number', '.status', '.level', '.ring .name', '.layer.loses .text', '[role=tab]', '#facts'].map((part) => {
                    const element = document.querySelector(part);
                    return element ? [part, getComputedStyle(element).color, groundOf(element)] : [part, 'missing', ''];
                });
            });
            assert.deepEqual(colors.filter(([, color]) => color === 'missing'), []);
            for (const [part, color, ground] of colors)
                assert.ok(contrast(color, ground) >= 4.5, `${part} on ${colorScheme}: ${color} on ${ground}`);
            grounds.add(await page.evaluate(() => getComputedStyle(document.body).backgroundColor));
        }, {colorScheme, hash: '#/player/controls[1]/button[3]'});
    }
    assert.equal(grounds.size, 2);
});

const attack = '</script><img src=x onerror="window.taken=1"><svg onload="window.taken=1">';
const inXml = attack.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/"/g, '&quot;');
const inCss = [...attack].map((character) => '\\' + character.codePointAt(0).toString(16) + ' ').join('');

test('texts of scenes and sheets are never markup', async () => {
    // A type cannot be written like that in XML: the nearest that can.
    const scene = write('attack <img src=x onerror=alert(1)>.xml',
        `<s><onerror.img-x id="${inXml}" class="${inXml}" pseudo="${inXml}" ${'none'}="${inXml}">${inXml}</onerror.img-x></s>`);
    const sheet = write('attack <img src=x onerror=alert(1)>.css', [
        `* { text: "${attack.replace(/"/g, '\\"')}"; ${inCss}: 1; font-family: "${attack.replace(/"/g, '\\"')}" }`,
        `.${inCss}, #${inCss}, ${inCss}, :${inCss} { opacity: 0.5 }`,
        `s { background: url("${attack.replace(/"/g, '\\"')}"); color: "${attack.replace(/"/g, '\\"')}" }`, attack].join('\n'));
    const {page, context, trouble, requests} = await open(inspect({scene, sheets: [sheet]}), {hash: '#/s/onerror.img-x[1]'});
    for (const name of ['messages', 'source'])
        await page.locator(`#below [data-shows=${name}]`).click();
    await page.locator('#expand-all').click();
    await page.locator('#attributes summary').first().click();
    for (const by of ['text', 'selector']) {
        await page.locator('#search-by').selectOption(by);
        await page.locator('#query').fill(attack);
    }
    await page.locator('#tree').focus();
    await page.keyboard.press('Home');
    await page.keyboard.press('End');
    assert.equal(await page.evaluate(() => window.taken), undefined);
    assert.deepEqual(await page.evaluate(() => ['img', 'script', 'iframe', 'object', 'link', 'style', '[onerror]', '[onload]']
        .map((part) => document.querySelectorAll(part).length)), [1, 2, 0, 0, 1, 1, 0, 0]);
    const shown = await page.evaluate(() => document.body.textContent.split('window.taken=1').length - 1);
    assert.ok(shown > 10, 'the texts are shown: ' + shown);
    assert.equal(requests.filter((url) => !url.startsWith('data:')).length, 1);
    assert.deepEqual(trouble, []);
    await context.close();
});

test('the policy of the page lets no other script and no request through', async () => {
    const {page, context} = await open(playerPage);
    const outcome = await page.evaluate(async () => {
        const violations = [];
        document.addEventListener('securitypolicyviolation', (event) => violations.push(event.effectiveDirective));
        const script = document.createElement('script');
        try {
            script.textContent = 'window.taken = 1';
        } catch (error) {
            violations.push(error.name);
        }
        document.body.append(script);
        const image = new Image();
        image.src = 'file:///nothing.png';
        let isFetched = true;
        await fetch('data:text/plain,a').catch(() => { isFetched = false; });
        await new Promise((resolve) => setTimeout(resolve, 50));
        return {violations, isFetched, taken: window.taken};
    });
    assert.equal(outcome.taken, undefined);
    assert.equal(outcome.isFetched, false);
    for (const expected of ['TypeError', 'img-src', 'connect-src'])
        assert.ok(outcome.violations.includes(expected), `${expected} in ${outcome.violations}`);
    await context.close();
});

test('characters that cannot be seen are shown as escapes', async () => {
    const scene = write('odd.xml', '<s><a id="x\u202ey">\u2066b\u2069</a></s>');
    const {page, context} = await open(inspect({scene, sheets: [write('odd.css', '')]}), {hash: '#/s/a[1]'});
    assert.equal(await page.locator('#node-name .id').textContent(), '#x\\u202ey');
    assert.equal(await page.locator('#row-1 .content').textContent(), '\\u2066b\\u2069');
    await context.close();
});

test('boxes that are not finite are left out', async () => {
    const scene = write('infinite.xml', '<s><a x="1e30" y="1e30"><b/></a><b/></s>');
    const sheet = write('infinite.css', 'b { width: calc(1 / 0) }');
    const {page, context, trouble} = await open(inspect({scene, sheets: [sheet]}), {hash: '#/s/b[1]'});
    assert.equal(await page.locator('#boxes .note').textContent(), 'This node has no finite box.');
    assert.equal(await page.locator('.selected .edge').count(), 0);
    await page.locator('#show-outlines').check();
    await page.locator('#tree').focus();
    for (const key of ['ArrowUp', 'ArrowUp', 'ArrowUp', 'End'])
        await page.keyboard.press(key);
    assert.deepEqual(trouble, []);
    await context.close();
});

test('scenes of many and of deeply nested nodes are shown', async () => {
    const wide = write('wide.xml', '<s>' + '<a><b/></a>'.repeat(1500) + '</s>');
    const deep = write('deep.xml', '<a>'.repeat(1500) + '</a>'.repeat(1500));
    const sheet = write('large.css', 'a { x: 0.01; y: 0.01 } b { width: 1px }');
    for (const [scene, count] of [[wide, 3001], [deep, 1500]]) {
        const {page, context, trouble} = await open(inspect({scene, sheets: [sheet]}));
        assert.equal(await page.locator('#node-count').textContent(), count + ' nodes');
        assert.ok(await page.locator('.row').count() < 100);
        await page.locator('#tree').focus();
        await page.keyboard.press('End');
        assert.equal(await page.locator('.row[aria-selected=true]').count(), 1);
        assert.deepEqual(trouble, []);
        await context.close();
    }
});
