// Gives the shared precompiled header a target to be built in.
