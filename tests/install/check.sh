#!/usr/bin/env bash
# Installs the built tree into a scratch prefix, then builds a caller against
# it twice: through the CMake package and through pkg-config.
set -euo pipefail
build=$1; src=$(cd "$(dirname "$0")" && pwd)
prefix=$build/install-check/prefix
rm -rf "$build/install-check"
cmake --install "$build" --prefix "$prefix" >/dev/null
cmake -S "$src" -B "$build/install-check/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$build/install-check/consumer" >/dev/null
LD_LIBRARY_PATH="$prefix/lib" "$build/install-check/consumer/consumer"
libdir=$(dirname "$(find "$prefix" -name tavin0.pc)")/..
flags=$(PKG_CONFIG_PATH="$libdir/pkgconfig" pkg-config --cflags --libs tavin0)
cc -std=c99 -Wall -Werror "$src/consumer.c" $flags -o "$build/install-check/pc_consumer"
LD_LIBRARY_PATH="$libdir" "$build/install-check/pc_consumer"
echo "installed package works through CMake and pkg-config"
