#!/usr/bin/env bash
# What the finished libraries show to the loader:
#
#     checkSymbols.sh [--sanitized] LIBRARY...
#
# They export names of this project only, nothing that would keep them from being unloaded, and run code at load only
# where packages.cpp says so.
set -euo pipefail
sanitized=
if [[ $1 == --sanitized ]]; then
    sanitized=1
    shift
fi
status=0

complain()
{
    echo "checkSymbols.sh: $1:" >&2
    echo "$2" >&2
    status=1
}

for library in "$@"; do
    name=$( basename "$library" )
    exported=$( nm -DC --defined-only "$library" | cut -d ' ' -f 3- )
    strangers=$( grep -vE '^((vtable|typeinfo|typeinfo name|VTT) for )?Zq::' <<< "$exported" || true )
    [[ -z $strangers ]] || complain "$name exports names that are not ours" "$strangers"
    (( $( wc -l <<< "$exported" ) > 5 )) || complain "$name exports next to nothing" "$exported"
    internal=$( grep -E 'Zq::Detail::(Registry|getRegistry)|TraceLevel$|\(anonymous namespace\)' <<< "$exported" |
        grep -vE '^(vtable|typeinfo|typeinfo name) for Zq::TraceLevel$' || true )
    [[ -z $internal ]] || complain "$name exports what is internal" "$internal"

    unique=$( readelf -W --dyn-syms "$library" | grep -w UNIQUE || true )
    [[ -z $unique ]] || complain "$name cannot be unloaded for these unique symbols" "$unique"

    # a unit with load-time effects has a function _GLOBAL__sub_I_<its name>; sanitizers add numbered ones of their own
    initialisers=$( nm "$library" | sed -n 's/.* [tT] _GLOBAL__sub_I_\([A-Za-z_].*\)/\1/p' )
    expected=
    [[ $name == libZQprimitives* ]] && expected=packages.cpp
    [[ $initialisers == "$expected" ]] || complain "$name: units with load-time effects, not '$expected'" "$initialisers"
    if [[ -z $sanitized ]]; then
        # each entry is a pointer; the first belongs to the compiler's run time
        size=$( readelf -WS "$library" | sed -n 's/^ *\[ *[0-9]*\] \.init_array *INIT_ARRAY *[0-9a-f]* [0-9a-f]* \([0-9a-f]*\).*/\1/p' )
        entries=$(( 16#${size:-0} / 8 ))
        allowed=1
        [[ -n $expected ]] && allowed=2
        (( entries == allowed )) || complain "$name: load-time functions, $allowed wanted" "$entries"
    fi
    if readelf -d "$library" | grep -qE 'TEXTREL|NODELETE'; then
        complain "$name: flags" "$( readelf -d "$library" | grep -E 'TEXTREL|NODELETE' )"
    fi
done
exit $status
