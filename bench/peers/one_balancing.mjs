// One equation through one balancer of the npm registry, in a process of its own:
//   node one_balancing.mjs PACKAGE_FOLDER PACKAGE "H2+O2=H2O"
// Prints the coefficients found and the microseconds that one balancing takes,
// as JSON. The caller keeps the time limit, since some of them never come back.
import fs from 'node:fs';
import {createRequire} from 'node:module';
import {performance} from 'node:perf_hooks';
import {pathToFileURL} from 'node:url';

const [folder, name, equation] = process.argv.slice(2);
const require = createRequire(pathToFileURL(folder + '/'));

function balancer() {
  if (name === 'reaction-balancer') {
    // Its file is of the older module kind under the name of the newer one.
    const file = require.resolve(name);
    const copy = file.replace(/\.js$/, '.cjs');
    fs.copyFileSync(file, copy);
    const balance = require(copy);
    const [left, right] = equation.split('=').map((side) => side.split(/\+(?!\})/));
    return () => [...balance({reactants: left, products: right}).values()].join(',');
  }
  const balance = require(name);
  return () => balance(equation).outChem;
}

const run = balancer();
const said = console.log;
console.log = () => {};
const answer = run();
const rounds = 200;
const began = performance.now();
for (let i = 0; i < rounds; ++i) run();
const micros = (performance.now() - began) * 1000 / rounds;
console.log = said;
console.log(JSON.stringify({answer, micros}));
