#!/bin/sh
# Times knex's schema builder (oracledb dialect) on the statement of the create21 benchmark: a table
# SCOTT.T with 21 columns C0..C20, VARCHAR2 of length 10..30, built and written with toString().
# Not part of CI. Needs node and npm; knex is installed into a temporary folder (never into the
# repository), which is removed afterwards. No database or driver is used: knex writes the text only.
#
#   bench/knex.sh [KNEX_VERSION]
set -eu

command -v node >/dev/null 2>&1 || { echo "node not found: skipped" >&2; exit 0; }
command -v npm >/dev/null 2>&1 || { echo "npm not found: skipped" >&2; exit 0; }

version=${1:-latest}
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT INT TERM

npm install --prefix "$dir" --no-audit --no-fund --silent "knex@$version" >/dev/null

cat >"$dir/bench.js" <<'EOF'
const knex = require('knex')({ client: 'oracledb' });
const { version } = require('knex/package.json');

function build() {
  return knex.schema
    .withSchema('SCOTT')
    .createTable('T', (t) => {
      for (let i = 0; i < 21; ++i) t.string('C' + i, 10 + i);
    })
    .toString();
}

console.log(build());
const run = (n) => {
  const start = process.hrtime.bigint();
  let length = 0;
  for (let i = 0; i < n; ++i) length += build().length;
  return [Number(process.hrtime.bigint() - start) / 1000 / n, length];
};
run(20000); // warm-up: let the JIT compile the builder
const times = [];
for (let r = 0; r < 5; ++r) times.push(run(20000)[0]);
times.sort((a, b) => a - b);
const mean = times.reduce((a, b) => a + b, 0) / times.length;
const sd = Math.sqrt(times.reduce((a, b) => a + (b - mean) ** 2, 0) / (times.length - 1));
console.log(`knex ${version}, node ${process.version}: build + toString of the 21-column CREATE TABLE`);
console.log(`median ${times[2].toFixed(2)} us, mean ${mean.toFixed(2)} us, spread ${(100 * sd / mean).toFixed(1)}% (5 x 20000)`);
EOF

(cd "$dir" && node bench.js)
