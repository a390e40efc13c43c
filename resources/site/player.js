// The two calls that a title's page makes, one for each size of its movie. Together they build the player: a
// video element in #stage, and a button in #sizes for each size. Movies lie beside their page, so the folder in an
// address is not used and the site plays below any path of a server.
'use strict';

const player = (() => {
  const sizes = [];
  let video = null;
  let shown = null;

  const nameOf = address => address.slice(address.lastIndexOf('/') + 1);
  const element = id => document.getElementById(id);

  function source(name, type) {
    const made = document.createElement('source');
    made.src = name;
    if (type) made.type = type;
    return made;
  }

  // Under its own name first: servers announce that rightly, and some browsers go by it.
  function sourcesOf(size) {
    const names = [size.original, size.name].filter(Boolean);
    return names.map(name => source(name, size.type));
  }

  function showFault(isFaulty) {
    element('fault').hidden = !isFaulty;
  }

  function mark() {
    for (const size of sizes) size.button.setAttribute('aria-pressed', String(size === shown));
    for (const row of document.querySelectorAll('tr[data-width]'))
      row.classList.toggle('shown', Number(row.dataset.width) === shown.width);
  }

  function goOnAt(time, isPlaying) {
    video.addEventListener('loadedmetadata', () => {
      video.currentTime = time;
      if (isPlaying) video.play().catch(() => {});
    }, {once: true});
  }

  function giveRoomFor(size) {
    document.documentElement.style.setProperty('--aspect', size.width / size.height);
  }

  // The movie goes on where it is when another size is chosen.
  function show(size) {
    if (size === shown) return;
    const time = shown ? video.currentTime : 0;
    const isPlaying = shown !== null && !video.paused;
    shown = size;
    showFault(false);
    giveRoomFor(size);
    const sources = sourcesOf(size);
    sources[sources.length - 1].addEventListener('error', () => showFault(size === shown));
    video.replaceChildren(...sources);
    if (time > 0 || isPlaying) goOnAt(time, isPlaying);
    video.load();
    mark();
  }

  function buttonFor(size) {
    const button = document.createElement('button');
    button.type = 'button';
    button.textContent = `${size.width} \u00d7 ${size.height}`;
    button.addEventListener('click', () => show(size));
    return button;
  }

  function makeVideo() {
    video = document.createElement('video');
    video.controls = true;
    video.playsInline = true;
    video.preload = 'metadata';
    video.poster = element('stage').dataset.poster;
    video.addEventListener('error', () => showFault(true));
    element('stage').append(video);
  }

  function add(address, width, height, original, type) {
    const size = {name: nameOf(address), width: Number(width), height: Number(height), original, type};
    size.button = buttonFor(size);
    sizes.push(size);
  }

  // The narrowest that need not be enlarged much for its place on this screen; else the widest.
  function bestSize() {
    const room = element('stage').clientWidth * window.devicePixelRatio;
    const byWidth = [...sizes].sort((a, b) => a.width - b.width);
    return byWidth.find(size => size.width * 1.25 >= room) || byWidth.pop();
  }

  function start() {
    if (sizes.length === 0) return;
    makeVideo();
    giveRoomFor(sizes[0]);
    if (sizes.length > 1) element('sizes').append(...sizes.map(size => size.button));
    show(bestSize());
  }

  document.addEventListener('DOMContentLoaded', start);
  return {add};
})();

// The older call: an address of the title's folder, the size, a place that is not used, then names with values.
function QT_WriteOBJECT_XHTML(poster, width, height, place, ...pairs) {
  const values = {};
  for (let i = 0; i + 1 < pairs.length; i += 2) values[pairs[i]] = pairs[i + 1];
  player.add(values.href || poster, width, height, values.original, values.type);
}

// The newer call: a name of this call, the movie, its attributes.
const AC = {
  Quicktime: {
    packageMovie(name, movie, {width, height, original, type}) {
      player.add(movie, width, height, original, type);
    },
  },
};
