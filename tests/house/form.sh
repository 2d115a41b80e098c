#!/usr/bin/env bash
# Checks that every C++ file has the form that .clang-format gives it.
set -euo pipefail
cd "$1"
find src tests bench \( -name '*.h' -o -name '*.cpp' \) -print0 |
  xargs -0 clang-format --dry-run --Werror
