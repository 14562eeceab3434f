# SPDX-License-Identifier: GPL-3.0-or-later
"""The features that Tables.h names, the terms of the formulas, and Tables.cpp."""
import re

# A square of 0 or 1 is itself, and that of the odds says no more than they do.
WITHOUT_SQUARE = {'One', 'Soon', 'Covered', 'Reattack', 'Odds'}
# Products of two features that were found to help.
NOTE_PRODUCTS = [('Mean', 'MeanShare'), ('Mean', 'Flux'), ('Mean', 'Covered'), ('Mean', 'Pitch'),
                 ('Mean', 'Duration'), ('Mean', 'Fundamental'), ('MeanShare', 'OctaveBelow'),
                 ('MeanShare', 'TwelfthBelow'), ('MeanShare', 'FarBelow'), ('Flux', 'Covered'),
                 ('OctaveBelow', 'Pitch')]

FILE = '''// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Tables.h"

#include <array>

namespace korvel::precise {

%s
}  // namespace korvel::precise
'''
TERMS = '''std::span<const Term<%(enum)s>> %(function)s() {
  using enum %(enum)s;
  static constexpr std::array<Term<%(enum)s>, %(count)d> kTerms{{
%(rows)s
  }};
  return kTerms;
}
'''
RANGES = '''std::span<const Range> rangesOf(%(enum)s) {
  static constexpr std::array<Range, %(count)d> kRanges{{
%(rows)s
  }};
  return kRanges;
}
'''


def names_of(header, enum):
    """The enumerators, but for Count."""
    body = re.search(r'enum class %s\b[^{]*{([^}]*)}' % enum, header)[1]
    return [name.strip() for name in body.split(',') if name.strip() != 'Count']


def terms_in(source, function, names):
    """The terms of a function of Tables.cpp: pairs of indices, and their weights."""
    body = re.search(r'%s\(\) {.*?\n}\n' % function, source, re.S)[0]
    found = re.findall(r'{(\w+), (\w+), (-?[\d.]+)}', body)
    return ([(names.index(a), names.index(b)) for a, b, _ in found],
            [float(weight) for _, _, weight in found])


def ranges_in(source, enum):
    """Least and most of each feature, as Tables.cpp has them."""
    body = re.search(r'rangesOf\(%s\) {.*?\n}\n' % enum, source, re.S)[0]
    return zip(*((float(a), float(b)) for a, b in re.findall(r'{(-?[\d.]+), (-?[\d.]+)},', body)))


def terms_of(names, products=()):
    """Pairs of indices: every feature by itself, squares, products. The first is the constant."""
    pairs = [('One', name) for name in names]
    pairs += [(name, name) for name in names if name not in WITHOUT_SQUARE]
    pairs += sorted(products, key=lambda pair: (names.index(pair[0]), names.index(pair[1])))
    return [(names.index(a), names.index(b)) for a, b in pairs]


def terms_text(function, enum, names, terms, weights):
    rows = ['      {%s, %s, %.4f},' % (names[i], names[j], weight)
            for (i, j), weight in zip(terms, weights)]
    return TERMS % dict(enum=enum, function=function, count=len(rows), rows='\n'.join(rows))


def ranges_text(enum, names, least, most):
    pairs = ['{%.4f, %.4f},' % pair for pair in zip(least, most)]
    width = max(map(len, pairs))
    rows = ['      %-*s  // %s' % (width, pair, name) for pair, name in zip(pairs, names)]
    return RANGES % dict(enum=enum, count=len(rows), rows='\n'.join(rows))


def file_text(parts):
    return FILE % '\n'.join(parts)
