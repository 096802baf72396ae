#!/usr/bin/env bash
# Builds the page and tests it in a headless Chromium (about five minutes after the first build).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
. setup/packages.sh

install_packages webtest
command -v npm >/dev/null || install_packages npm # some come with node
./web
modules=build/npm
if [ ! -d "$modules/node_modules/puppeteer-core" ]; then
    mkdir -p "$modules"
    npm install --silent --no-audit --no-fund --prefix "$modules" puppeteer-core@21
fi
cp tests/web/page_test.mjs "$modules/" # where node looks for its modules
cd show
node "../$modules/page_test.mjs" ../build/web ../build/wasm/platform ../build/release/programs/lumenfold-film \
    "$(command -v chromium)"
