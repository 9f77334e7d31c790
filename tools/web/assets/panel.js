'use strict';
// The panel page: draws what the server sends and reports keys. A held key
// is re-sent every REPEAT_MS; the server lets it go when the re-sends stop,
// so a key-up lost to a closed tab or a lost focus cannot keep it held.
(function () {
  const REPEAT_MS = 100;
  const RECONNECT_MS = 1000;
  // Keys worth sending; the server maps them the way the terminal does.
  const NAMED = new Set(['ArrowLeft', 'ArrowUp', 'ArrowRight', 'ArrowDown', 'Escape', 'Enter',
    'Backspace', 'Delete', 'F2', 'F3', 'F5', 'F6', 'F7']);

  const $ = (id) => document.getElementById(id);
  const token = new URLSearchParams(location.hash.slice(1)).get('token') || '';
  let socket = null;
  let mayPress = false;
  let held = null;  // {verb, name, timer, button}

  function send(text) {
    if (socket && socket.readyState === WebSocket.OPEN) socket.send(text);
  }

  function release() {
    if (!held) return;
    clearInterval(held.timer);
    send((held.verb === 'key' ? 'keyup ' : 'padup ') + held.name);
    if (held.button) held.button.classList.remove('held');
    held = null;
  }

  function hold(verb, name, button) {
    release();
    send(verb + ' ' + name);
    held = { verb, name, button, timer: setInterval(() => send(verb + ' ' + name), REPEAT_MS) };
    if (button) button.classList.add('held');
  }

  function drawLcd(state) {
    const lcd = $('lcd');
    if (lcd.childElementCount !== state.height) {
      lcd.textContent = '';
      for (let r = 0; r < state.height; ++r) {
        const row = document.createElement('div');
        row.className = 'row';
        lcd.appendChild(row);
      }
    }
    state.rows.forEach((text, r) => {
      const row = lcd.children[r];
      const cells = Array.from(text);
      const mask = state.reverse[r] || '';
      if (row.childElementCount !== cells.length) {
        row.textContent = '';
        cells.forEach(() => {
          const c = document.createElement('span');
          c.className = 'c';
          row.appendChild(c);
        });
      }
      cells.forEach((ch, i) => {
        const c = row.children[i];
        if (c.textContent !== ch) c.textContent = ch;
        c.classList.toggle('rev', mask[i] === '#');
      });
    });
    const b = state.brightness < 0 ? 8 : Math.min(Math.max(state.brightness, 0), 8);
    lcd.style.filter = 'brightness(' + (0.45 + 0.55 * b / 8).toFixed(2) + ')';
  }

  function drawLeds(leds) {
    const box = $('leds');
    box.textContent = '';
    leds.forEach(([n, on]) => {
      const led = document.createElement('span');
      led.className = 'led' + (on ? ' on' : '');
      led.appendChild(document.createElement('i'));
      led.appendChild(document.createTextNode(String(n)));
      box.appendChild(led);
    });
  }

  function show(state) {
    document.title = state.title;
    $('title').textContent = state.title + ' — ' + state.version;
    drawLcd(state);
    drawLeds(state.leds);
    const dash = (v) => (v < 0 ? '-' : String(v));
    $('unitStatus').textContent = dash(state.unitStatus);
    $('brightness').textContent = dash(state.brightness);
    $('fanState').textContent = state.fanState < 0 ? '-' : state.fanState ? 'on' : 'off';
    $('temperature').textContent = state.temperature + ' °C';
    $('fans').textContent = state.fans.join(' / ') + ' rpm';
    $('indicators').textContent = state.indicators.join('\n');
    const link = $('link');
    link.textContent = state.connected ? 'unit connected' : 'waiting for the unit';
    link.className = 'badge ' + (state.connected ? 'on' : 'off');
  }

  function showAccess(msg) {
    mayPress = msg.mayPress;
    const access = $('access');
    access.textContent = mayPress ? 'keys enabled' : 'view only';
    access.className = 'badge ' + (mayPress ? 'on' : 'off');
    $('unlock').hidden = mayPress || !msg.needsToken;
    document.querySelectorAll('#keypad .k').forEach((k) => { k.disabled = !mayPress; });
    document.body.dataset.access = mayPress ? 'press' : 'view';
  }

  function connect() {
    socket = new WebSocket((location.protocol === 'https:' ? 'wss://' : 'ws://') + location.host + '/ws');
    socket.onopen = () => {
      if (token) send('auth ' + token);
    };
    socket.onmessage = (ev) => {
      let msg;
      try { msg = JSON.parse(ev.data); } catch (e) { return; }
      if (msg.type === 'state') show(msg);
      else if (msg.type === 'access') showAccess(msg);
      document.body.dataset.live = 'yes';
    };
    socket.onclose = () => {
      document.body.dataset.live = 'no';
      if (held) { clearInterval(held.timer); held = null; }
      const link = $('link');
      link.textContent = 'disconnected; retrying';
      link.className = 'badge off';
      setTimeout(connect, RECONNECT_MS);
    };
  }

  document.addEventListener('keydown', (ev) => {
    if (ev.target instanceof HTMLInputElement || ev.ctrlKey || ev.altKey || ev.metaKey) return;
    const known = NAMED.has(ev.key) || (ev.key.length === 1 && /[ 0-9A-Za-z]/.test(ev.key));
    if (!known) return;
    ev.preventDefault();
    // The browser's own repeats come late and irregular; ours keep the hold.
    if (ev.repeat || !mayPress) return;
    hold('key', ev.key === ' ' ? 'Space' : ev.key, null);
  });
  document.addEventListener('keyup', (ev) => {
    const name = ev.key === ' ' ? 'Space' : ev.key;
    if (held && held.verb === 'key' && held.name === name) release();
  });
  window.addEventListener('blur', release);
  document.addEventListener('visibilitychange', () => { if (document.hidden) release(); });

  document.querySelectorAll('#keypad .k').forEach((button) => {
    button.addEventListener('pointerdown', (ev) => {
      if (!mayPress) return;
      ev.preventDefault();
      button.setPointerCapture(ev.pointerId);
      hold('pad', button.dataset.key, button);
    });
    const up = () => { if (held && held.button === button) release(); };
    button.addEventListener('pointerup', up);
    button.addEventListener('pointercancel', up);
    button.addEventListener('lostpointercapture', up);
  });

  $('unlock').addEventListener('submit', (ev) => {
    ev.preventDefault();
    send('auth ' + $('token').value.trim());
  });

  connect();
}());
