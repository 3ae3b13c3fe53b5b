// Times warm sgp4() calls of satellite.js on the report's element sets with
// the same times as bench/propagation (minutes (i * 37) % 1440), after a JIT
// warm-up. Usage: node bench/satellite_js_bench.js SCRATCH/node_modules/satellite.js
// (install it with npm into a scratch folder outside the repository).
'use strict';
const path = require('path');
const { pathToFileURL } = require('url');

const sets = {
  SGP4: ['1 88888U          80275.98708465  .00073094  13844-3  66816-4 0    8',
         '2 88888  72.8435 115.9689 0086731  52.6988 110.5714 16.05824518  105'],
  SDP4: ['1 11801U          80230.29629788  .01431103  00000-0  14311-1      13',
         '2 11801  46.7916 230.4354 7318036  47.4722  10.4117  2.28537848    13'],
};

function run(satellite, satrec, calls) {
  let sum = 0;
  for (let i = 0; i < calls; i++) {
    const pv = satellite.sgp4(satrec, (i * 37) % 1440);
    sum += pv.position.x;
  }
  return sum;
}

async function main() {
  const folder = path.resolve(process.argv[2] || 'node_modules/satellite.js');
  const satellite = await import(pathToFileURL(path.join(folder, 'dist', 'index.js')).href);
  for (const [name, lines] of Object.entries(sets)) {
    const satrec = satellite.twoline2satrec(lines[0], lines[1]);
    run(satellite, satrec, 200000);  // JIT warm-up
    const calls = 2000000;
    let best = Infinity;
    for (let rep = 0; rep < 5; rep++) {
      const start = process.hrtime.bigint();
      run(satellite, satrec, calls);
      best = Math.min(best, Number(process.hrtime.bigint() - start) / calls);
    }
    console.log(`satellite.js sgp4 ${name} warm: ${best.toFixed(1)} ns/call`);
  }
}

main();
