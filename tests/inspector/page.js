// What the tests of the inspector page share: pages made by the command, a browser that shows them, and what it asked for.
'use strict';

const {execFileSync, spawnSync} = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const {pathToFileURL} = require('node:url');
const {chromium} = requirePlaywright();

const program = process.env.BRISKO_PROGRAM;
const examples = process.env.BRISKO_EXAMPLES;
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'brisko-inspector-'));
const player = {scene: path.join(examples, 'scene.xml'), sheets: ['main.css', 'mistakes.css'].map(
    (name) => path.join(examples, 'style', name))};
let browser = null;

function requirePlaywright() {
    try {
        return require('playwright-core');
    } catch {
        throw new Error('playwright-core is missing: ./dev test installs it into build/browser');
    }
}

/** Runs the command. @return its output as JSON */
function briskoJson(...words) {
    return JSON.parse(execFileSync(program, [...words, '--format', 'json'], {encoding: 'utf8', maxBuffer: 1 << 28}));
}

/** Writes a file into the folder of the tests. @return its path */
function write(name, text) {
    const file = path.join(folder, name);
    fs.writeFileSync(file, text);
    return file;
}

function sheetOptions(input) {
    return input.sheets.flatMap((sheet) => ['-s', sheet]);
}

/** Makes the page of a scene with its sheets. @return its path */
function inspect(input) {
    const file = path.join(fs.mkdtempSync(path.join(folder, 'page-')), 'page.html');
    const run = spawnSync(program, ['inspect', input.scene, ...sheetOptions(input), '-o', file], {encoding: 'utf8'});
    if (run.status !== 0)
        throw new Error('inspect failed: ' + run.stderr);
    return file;
}

/** The nodes of `style` in document order, each with the place where its content begins. */
function styledNodes(input) {
    const {root} = briskoJson('style', input.scene, ...sheetOptions(input), '--all');
    const nodes = [];
    const visit = (node, x, y) => {
        nodes.push({...node, x, y});
        for (const child of node.children)
            visit(child, x + child.attributes.x.value, y + child.attributes.y.value);
    };
    visit(root, 0, 0);
    return nodes;
}

/** Opens a page. What it logs, throws and asks for is kept in `trouble` and `requests`. */
async function open(file, options = {}) {
    browser = browser || await chromium.launch({executablePath: '/usr/bin/chromium', args: ['--no-sandbox']});
    const context = await browser.newContext({viewport: {width: 1280, height: 800}, ...options});
    const page = await context.newPage();
    const trouble = [];
    const requests = [];
    page.on('console', (message) => trouble.push(`${message.type()}: ${message.text()}`));
    page.on('pageerror', (error) => trouble.push(String(error)));
    page.on('dialog', (dialog) => {
        trouble.push('dialog: ' + dialog.message());
        dialog.dismiss();
    });
    context.on('request', (request) => requests.push(request.url()));
    await page.goto(pathToFileURL(file).href + (options.hash || ''));
    return {page, context, trouble, requests};
}

/** The path of the selected node, as the page shows it. */
function selectedPath(page) {
    return page.locator('#node-path').getAttribute('title');
}

/** Closes the browser and removes what was written. */
async function close() {
    if (browser)
        await browser.close();
    fs.rmSync(folder, {recursive: true, force: true});
}

module.exports = {briskoJson, close, inspect, open, player, selectedPath, sheetOptions, styledNodes, write};
