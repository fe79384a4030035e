#!/bin/sh
cd "$(dirname "$0")/.." && exec cmake --workflow --preset asan
