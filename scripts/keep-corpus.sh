#!/usr/bin/env bash
# Keeps what the fuzz targets found on their way, after ./test.sh --fuzz: the fewest inputs that reach
# all of it, packed as fuzz/found/NAME.tar.xz. The next run begins with them.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$root/fuzz/found"
for target in "$root"/fuzz/*_fuzz.cpp; do
    name=$(basename "$target" _fuzz.cpp)
    mkdir "$work/$name"
    "$root/build/fuzz/bin/${name}_fuzz" -merge=1 -max_len=1024 "$work/$name" \
        "$root/fuzz/corpus/$name" "$root/build/fuzz/corpus/$name" >"$work/$name.log" 2>&1
    tar -C "$work/$name" --sort=name --mtime=@0 --owner=0 --group=0 --numeric-owner -cf - . |
        xz -9e >"$root/fuzz/found/$name.tar.xz"
    echo "$name: $(find "$work/$name" -type f | wc -l) inputs"
done
