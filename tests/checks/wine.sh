# Sourced by what runs Windows programs: Wine with a prefix of the caller's, or one of its own, and
# without what it would ask to be fetched.
export WINEPREFIX=${WINEPREFIX:-$PWD/build/wine} WINEARCH=win64 WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
# Debian keeps the loader of 64 bits out of the way of the wrapper that asks for the one of 32.
PATH=$PATH:/usr/lib/wine
