#!/usr/bin/env bash
# Installs the library, moves the tree and builds a client each way.
#
#     check.sh STEP SOURCE_DIR BUILD_DIR WORK_DIR CXX GENERATOR VERSION
#
# Steps: install (files, relocation; the next two need it), find_package, pkg-config, add_subdirectory, FetchContent.
set -euo pipefail
step=$1 source=$2 build=$3 work=$4 cxx=$5 generator=$6 version=$7
here=$source/tests/install
moved=$work/moved
warnings=( -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror )

fail()
{
    echo "check.sh: $*" >&2
    exit 1
}

# What lies in a room, a folder below a library's, is internal.
public_files() # NAME PATTERNS of find
{
    ( cd "$source/src" && find . -mindepth 2 -maxdepth 2 -type f "$@" -printf '%P\n' ) | sort
}

make_everything()
{
    mkdir -p "$work/generated"
    # what adapts a library that has to be linked is for those who link it
    public_files -name '*.h' ! -name 'tbb*' | sed 's|.*|#include <zq/&>|' > "$work/generated/everything.h"
}

build_client() # WAY CMAKE_ARGUMENTS...
{
    local way=$1
    shift
    rm -rf "$work/$way"
    cmake -S "$here/client" -B "$work/$way" -G "$generator" -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_BUILD_TYPE=Debug \
        -DZQ_CLIENT_WAY="$way" -DZQ_CLIENT_SOURCE_DIR="$source" -DZQ_CLIENT_GENERATED_DIR="$work/generated" "$@"
    cmake --build "$work/$way"
    "$work/$way/client"
    "$work/$way/client_reproducible"
    # the library's own options stay with the library
    local commands=$work/$way/compile_commands.json
    grep '"command".*client\.dir/client' "$commands" > "$work/$way/client.commands"
    ! grep -E -- '-ffp-contract|-Wold-style-cast|-Wundef|-Wsign-conversion' "$work/$way/client.commands" ||
        fail "options of the library reach the client"
    grep '"command".*client_reproducible\.dir/client' "$commands" | grep -q -- -ffp-contract=off ||
        fail "Zq::reproducible brings no -ffp-contract=off"
}

as_subproject() # WAY
{
    local way=$1
    build_client "$way" -DZQ_INSTALL=ON -DCMAKE_INSTALL_LIBDIR=lib/some/where
    ! cmake --build "$work/$way" --target help | grep -E 'zq_[a-z]*_test|cullMesh' ||
        fail "development targets in a client's build"
    # an unusual library folder: the way from a pkg-config file to the prefix is longer
    cmake --install "$work/$way" --prefix "$work/$way/tree" > /dev/null
    use_pkg_config "$work/$way/tree"
}

use_pkg_config() # TREE
{
    local folder flags libs
    folder=$( dirname "$( find "$1" -name ZQprimitives.pc )" )
    for package in ZQbase ZQresmgt ZQprimitives; do
        [[ $( PKG_CONFIG_PATH=$folder pkg-config --modversion $package ) == "$version" ]] ||
            fail "version of $package"
    done
    read -ra flags <<< "$( PKG_CONFIG_PATH=$folder pkg-config --cflags ZQprimitives )"
    read -ra libs <<< "$( PKG_CONFIG_PATH=$folder pkg-config --libs ZQprimitives )"
    "$cxx" -std=c++17 "${warnings[@]}" -fvisibility=hidden -I"$work/generated" "${flags[@]}" \
        "$here/client/client.cpp" -o "$work/client" "${libs[@]}" -Wl,-rpath,"$( dirname "$folder" )"
    "$work/client"
}

case $step in
install)
    rm -rf "$work"
    make_everything
    cmake --install "$build" --prefix "$work/first" > /dev/null
    mv "$work/first" "$moved"
    libdir=$( dirname "$( find "$moved" -name libZQprimitives.so )" )

    # every header and fragment, the libraries, the two kinds of package files, and nothing else
    (
        public_files '(' -name '*.h' -o -name '*.inline' ')' | sed 's|^|include/zq/|'
        cd "$moved"
        libdir=${libdir#"$moved/"}
        for library in base resmgt primitives; do
            printf '%s\n' "$libdir/libZQ$library.so" "$libdir/libZQ$library.so.${version%.*}" \
                "$libdir/libZQ$library.so.$version" "$libdir/pkgconfig/ZQ$library.pc"
        done
        printf '%s\n' "$libdir"/cmake/ZQprimitives/ZQprimitives{Config,ConfigVersion,Targets}.cmake \
            "$libdir"/cmake/ZQprimitives/ZQprimitivesTargets-*.cmake
    ) | sort > "$work/expected"
    ( cd "$moved" && find . ! -type d -printf '%P\n' | sort ) > "$work/installed"
    diff "$work/expected" "$work/installed" || fail "installed files (<: missing, >: unexpected)"

    # what an installed file includes is installed, too
    while IFS=: read -r file include; do
        [[ -f $( dirname "$file" )/$include ]] || fail "$file includes $include, which is not installed"
    done < <( cd / && grep -rE '^# *include "' "$moved/include" | sed 's/: *#.*include "\(.*\)".*/:\1/' )

    # no trace of where the tree was made or first installed
    ! grep -rIlF -e "$work/first" -e "$source" -e "$build" "$moved" || fail "paths of this machine in the files above"
    for library in "$libdir"/libZQ*.so; do
        readelf -d "$library" | grep -qF 'runpath: [$ORIGIN]' || fail "run path of $library"
        readelf -d "$library" | grep NEEDED | sed 's/.*\[\(.*\)\]/\1/' |
            ( ! grep -vE '^(libZQ[a-z]+\.so\.'"${version%.*}"'|libstdc\+\+\.so\.6|libc\+\+.*|libgcc_s\.so\.1|lib[cm]\.so\.6|ld-.*)$' ) ||
            fail "$library needs the libraries above"
    done
    ;;
find_package)
    build_client find_package -DCMAKE_PREFIX_PATH="$moved"
    # a client of another minor version is told so
    ! cmake "$work/find_package" -DZQ_CLIENT_VERSION=0.3 > "$work/log" 2>&1 || fail "version 0.3 was accepted"
    grep -q 'version: 0\.2' "$work/log" || fail "version 0.3 was refused for another reason"
    ;;
pkg-config)
    use_pkg_config "$moved"
    ;;
add_subdirectory | FetchContent)
    make_everything
    as_subproject "$step"
    ;;
*)
    fail "unknown step $step"
    ;;
esac
