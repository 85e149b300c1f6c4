#!/bin/sh
# Compiles for Windows with Clang instead of the compiler that is named first: without optimisation it takes half the time.
# The standard library, and how threads keep their variables and types are compared, are those of GCC: the objects are linked
# with what it has compiled.
compiler=$1
shift
folder=$(dirname "$("$compiler" -print-libgcc-file-name)")/include/c++
machine=$("$compiler" -dumpmachine)
exec clang++ "--target=$machine" -femulated-tls -D__GXX_TYPEINFO_EQUALITY_INLINE=0 -nostdinc++ \
  -isystem "$folder" -isystem "$folder/$machine" -isystem "$folder/backward" "$@"
