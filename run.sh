#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# ./run.sh [ARGUMENT...]: installs what is missing, builds Wallgrid and starts it with the arguments. Without arguments and
# without a display it exports the document that Wallgrid starts with to out/launch.png instead. V=1 shows the build.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
program=$here/build/release/bin/wallgrid

# Standard output belongs to the program.
{
  "$here/tools/install-packages" "$here/tools/packages.txt"
  "$here/tools/build" release wallgrid -DWALLGRID_BUILD_TESTS=OFF -DWALLGRID_BUILD_BENCH=OFF
} >&2

if [ $# -eq 0 ] && [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  mkdir -p "$here/out"
  "$program" export --png "$here/out/launch.png"
  echo "There is no display for the window, so the launch document was exported to out/launch.png."
else
  exec "$program" "$@"
fi
