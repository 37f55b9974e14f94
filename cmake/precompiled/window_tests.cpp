// The sources of a set of precompiled headers: nothing but the headers.
