# What the scripts share; read by them with the repository as working directory.

# Our own sources, each name ended by a zero byte.
sources()
{
    git ls-files -z '*.h' '*.cpp' 2>/dev/null ||
        find . -path ./build -prune -o -type f \( -name '*.h' -o -name '*.cpp' \) -print0  # not a clone
}

# Clones in different folders share what ccache has compiled.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

# build PRESET [TARGET...]: configures and builds; silent unless it fails.
build()
{
    local preset=$1 log="build/$1/build.log"
    shift
    mkdir -p "build/$preset"
    if ! { cmake --preset "$preset" &&
           cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}; } >"$log" 2>&1; then
        grep -E '^FAILED|error:|undefined reference|CMake Error' "$log" | cut -c1-300 | head -n 40 >&2
        echo "The build failed; all of its output is in $log, and these are its last lines:" >&2
        tail -n 20 "$log" | cut -c1-300 >&2
        return 1
    fi
}

# test_summary PRESET: what ctest said at the end of the last test run.
test_summary()
{
    sed -n '/% tests passed/,$p' "build/$1/tests.log"
}
