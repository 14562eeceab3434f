# SPDX-License-Identifier: GPL-3.0-or-later
"""The small networks of the precise detection, and the sources that have their weights."""
import numpy as np

HIDDEN = (24, 8)
NETWORKS = 3
LEAK = .1
RATE, DECAY, BATCH = .003, 1e-3, 512
# Adam's memories.
SLOPES, SQUARES = .9, .999
# Of what an input was, in percent; the rest is taken as the nearest of these.
RANGE = (.2, 99.8)
A_ROW = 8  # numbers of a line

FILE = '''// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/%s.h"

namespace korvel::precise {

// Written by tools/detection/fit.py.
const %s& %s() {
  // clang-format off
  static constexpr %s kWeights{
%s  };
  // clang-format on
  return kWeights;
}

}  // namespace korvel::precise
'''


class Network:
    """Cells of two hidden layers. Inputs count by their spread, but for what lies far out."""

    def __init__(self, inputs, r):
        self.least, self.most = np.percentile(inputs, RANGE, axis=0).astype(np.float32)
        limited = self.limited(inputs)
        self.centre, self.spread = limited.mean(axis=0), limited.std(axis=0) + 1e-3
        sizes = [inputs.shape[1], *HIDDEN, 1]
        self.layers = [r.normal(0, np.sqrt(2 / size), (size, to)).astype(np.float32)
                       for size, to in zip(sizes, sizes[1:])]
        self.layers += [np.zeros(to, np.float32) for to in sizes[1:]]

    def limited(self, inputs):
        return np.clip(inputs, self.least, self.most)

    def scaled(self, inputs):
        return ((self.limited(inputs) - self.centre) / self.spread).astype(np.float32)

    def pairs(self):
        """Weights and biases of each layer."""
        count = len(self.layers) // 2
        return list(zip(self.layers[:count], self.layers[count:]))

    def cells(self, scaled):
        cells = [scaled]
        for weights, biases in self.pairs():
            cells.append(cells[-1] @ weights + biases)
            if len(cells) <= len(HIDDEN) + 1:
                cells[-1] = np.maximum(cells[-1], LEAK * cells[-1])
        return cells

    def odds(self, inputs):
        return self.cells(self.scaled(inputs))[-1][:, 0]

    def slopes(self, scaled, targets, weights, base):
        """Of the mean loss, in the order of the layers."""
        cells = self.cells(scaled)
        p = 1 / (1 + np.exp(-np.clip(cells[-1][:, 0] + base, -30, 30)))
        error = ((p - targets) * weights / len(p))[:, None].astype(np.float32)
        of_weights, of_biases = [], []
        for number, (layer, _) in reversed(list(enumerate(self.pairs()))):
            of_weights.insert(0, cells[number].T @ error + DECAY * layer)
            of_biases.insert(0, error.sum(axis=0))
            if number:
                error = (error @ layer.T) * np.where(cells[number] > 0, 1, LEAK)
        return of_weights + of_biases


class Networks:
    """Several that differ in how they began. What they say together is the mean. base: what else is
    added to the odds, which the networks correct; it is not theirs to say."""

    def __init__(self, inputs, targets, weights, epochs, base=None):
        self.all = [fit(inputs, targets, weights, epochs, seed, base) for seed in range(NETWORKS)]

    def odds(self, inputs):
        return np.mean([network.odds(inputs) for network in self.all], axis=0)


def fit(inputs, targets, weights, epochs, seed, base=None):
    """A network that was shown all of it, by Adam, in steps that get shorter."""
    r = np.random.RandomState(seed)
    network = Network(inputs, r)
    scaled = network.scaled(inputs)
    base = np.zeros(len(scaled), np.float32) if base is None else base.astype(np.float32)
    means = [np.zeros_like(layer) for layer in network.layers]
    squares = [np.zeros_like(layer) for layer in network.layers]
    steps, step = epochs * -(-len(scaled) // BATCH), 0
    for _ in range(epochs):
        order = r.permutation(len(scaled))
        for start in range(0, len(order), BATCH):
            chosen = order[start:start + BATCH]
            slopes = network.slopes(scaled[chosen], targets[chosen], weights[chosen],
                                    base[chosen])
            step += 1
            rate = RATE * .5 * (1 + np.cos(np.pi * step / steps))
            for layer, slope, mean, square in zip(network.layers, slopes, means, squares):
                mean += (1 - SLOPES) * (slope - mean)
                square += (1 - SQUARES) * (slope * slope - square)
                layer -= rate * (mean / (1 - SLOPES ** step)
                                 / (np.sqrt(square / (1 - SQUARES ** step)) + 1e-8))
    return network


def numbers(values):
    texts = ['%.5gF' % value if '.' in '%.5g' % value or 'e' in '%.5g' % value
             else '%.5g.0F' % value for value in np.ravel(values)]
    return ''.join('      ' + ', '.join(texts[i:i + A_ROW]) + ',\n'
                   for i in range(0, len(texts), A_ROW))


def network_text(network):
    """Weights for inputs as they are: the first layer has what scales them."""
    (weights, biases), *rest = network.pairs()
    scaled = weights / network.spread[:, None]
    layers = [(scaled, biases - network.centre @ scaled), *rest]
    return '    {\n%s    },\n' % ''.join(
        '      {{\n%s      }, {\n%s      }},\n' % (numbers(layer_weights), numbers(layer_biases))
        for layer_weights, layer_biases in layers)


def file_text(file, networks):
    """Of the source of that name, without ending, below src/precise."""
    name = file.split('/')[-1]
    ranges = ''.join('    {\n%s    },\n' % numbers(values)
                     for values in (networks.all[0].least, networks.all[0].most))
    return FILE % (file, name, name[0].lower() + name[1:], name,
                   ranges + '    {{\n%s    }},\n' % ''.join(map(network_text, networks.all)))
