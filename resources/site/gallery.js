// The search field of the index: shows the titles whose names hold every word in it, whatever their accents.
'use strict';

const plain = text => text.normalize('NFKD').replace(/\p{M}/gu, '').toLowerCase().replaceAll('\u00df', 'ss');

const cards = [...document.querySelectorAll('.card')].map(
  card => ({card, text: plain(card.querySelector('.name').textContent)}));
const search = document.getElementById('search');
const count = document.getElementById('count');
const all = count.textContent;

function filter() {
  const words = plain(search.value).split(/\s+/).filter(Boolean);
  let found = 0;
  for (const {card, text} of cards) {
    card.hidden = !words.every(word => text.includes(word));
    found += card.hidden ? 0 : 1;
  }
  document.getElementById('none').hidden = found > 0;
  count.textContent = words.length > 0 ? `${found} of ${cards.length} titles` : all;
}

search.addEventListener('input', filter);
search.hidden = cards.length < 2;
filter(); // a browser keeps what was searched for when it comes back here
