// SPDX-License-Identifier: GPL-3.0-or-later
// The sources of a set of precompiled headers: nothing but the headers.
