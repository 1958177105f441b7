// The diagnostics of the sheets and the scene.

function makeMessage(message) {
    const item = make('li', 'message ' + message.level);
    item.append(make('span', 'level', message.level), make('span', 'what', message.text));
    if (message.times)
        item.append(make('span', 'times', '× ' + message.times));
    item.append(makePlace({file: message.file, line: message.line}));
    return item;
}

const mostMessages = 2000;

/** What stands below the messages; empty where nothing has to. */
function messagesNote() {
    if (data.messages.length === 0)
        return 'No complaints about the sheets or the scene.';
    const more = data.messages.length - mostMessages;
    return more > 0 ? `and ${more} more` : '';
}

byId('messages').replaceChildren(...data.messages.slice(0, mostMessages).map(makeMessage),
    ...(messagesNote() ? [make('li', 'note', messagesNote())] : []));

const worst = ['error', 'warning', 'debug'].find((level) => data.messages.some((message) => message.level === level));
for (const count of document.querySelectorAll('.count')) {
    say(count, data.messages.length || '');
    count.className = 'count ' + (worst || '');
}
