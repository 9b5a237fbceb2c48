// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

// What both forms of the extension have in common: its beginning and its end are in the folders that
// are called by the first version of the shell that takes them.

const NAME = 'org.quorvel.Quorvel1';
const PATH = '/org/quorvel/Quorvel1';
const GREEN = '#2ac74b';
const RED = '#ff6b6c';
const ARROWS = {up: '▲', down: '▼'};
const FAINT = 140; // of 255

const Program = Gio.DBusProxy.makeProxyWrapper(`
<node><interface name="${NAME}">
    <property name="Segments" type="a(ss)" access="read"/>
    <property name="ColorScheme" type="s" access="read"/>
    <property name="ShowsArrows" type="b" access="read"/>
    <property name="IsLive" type="b" access="read"/>
    <property name="NotLiveReason" type="s" access="read"/>
    <method name="TogglePanelAt"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
    <method name="ShowLine"/>
    <method name="HideLine"/>
</interface></node>`);

function colorOf(direction, scheme) {
    return (direction === 'up') === (scheme === 'redUpGreenDown') ? RED : GREEN;
}

/// The line as markup; empty without segments.
function markupOf(program) {
    return (program.Segments ?? []).map(([text, direction]) => {
        const words = GLib.markup_escape_text(text, -1);
        const arrow = program.ShowsArrows ? ARROWS[direction] : undefined;
        if (!arrow)
            return words;
        const color = colorOf(direction, program.ColorScheme);
        return `${words} <span foreground="${color}" size="smaller">${arrow}</span>`;
    }).join('  ');
}

/// The line in the top bar. It is there while the program runs and has something to show.
const Indicator = GObject.registerClass(class Indicator extends PanelMenu.Button {
    _init(program) {
        super._init(0.5, 'Quorvel', true);
        this._program = program;
        this._label = new St.Label({y_align: Clutter.ActorAlign.CENTER});
        this.add_child(this._label);
        this.connect('button-press-event', (_actor, event) => this._open(event));
        this.connect('key-press-event', (_actor, event) => {
            const key = event.get_key_symbol();
            if (key !== Clutter.KEY_Return && key !== Clutter.KEY_space)
                return Clutter.EVENT_PROPAGATE;
            return this._open(null);
        });
    }

    _open(event) {
        const [left, top] = this.get_transformed_position();
        const x = event ? event.get_coords()[0] : left + this.width / 2;
        this._program.TogglePanelAtRemote(Math.round(x), Math.round(top + this.height - 1), () => {});
        return Clutter.EVENT_STOP;
    }

    show_line() {
        const markup = markupOf(this._program);
        this.visible = markup !== '';
        this._label.clutter_text.set_markup(markup);
        this._label.opacity = this._program.IsLive ? 255 : FAINT;
        const reason = this._program.IsLive ? '' : this._program.NotLiveReason ?? '';
        this.accessible_name = `${this._label.text} ${reason}`;
    }
});

/// Follows the program's coming and going, and shows the line meanwhile.
class Line {
    constructor() {
        this._watch = Gio.bus_watch_name(Gio.BusType.SESSION, NAME, Gio.BusNameWatcherFlags.NONE,
            () => this._begin(), () => this._end());
    }

    _begin() {
        this._end();
        this._cancellable = new Gio.Cancellable();
        new Program(Gio.DBus.session, NAME, PATH, (program, error) => {
            if (error || this._cancellable === null || program.g_name_owner === null)
                return;
            this._program = program;
            this._indicator = new Indicator(program);
            Main.panel.addToStatusArea('quorvel', this._indicator);
            program.connect('g-properties-changed', () => this._indicator?.show_line());
            this._indicator.show_line();
            program.ShowLineRemote(() => {});
        }, this._cancellable, Gio.DBusProxyFlags.DO_NOT_AUTO_START);
    }

    _end() {
        this._cancellable?.cancel();
        this._cancellable = null;
        this._indicator?.destroy();
        this._indicator = null;
        this._program = null;
    }

    destroy() {
        // The shell stays on the bus, so it has to be said.
        this._program?.HideLineRemote(() => {});
        this._end();
        Gio.bus_unwatch_name(this._watch);
    }
}
