"""Finds the pieces of two expansions that have no partner in the other. A piece is a list of edges, one or those of
a face, and an edge a list of numbers as expansion_facts prints them."""
import bisect

# Weights without a symmetry tell pieces apart; both ends of an edge have the same ones, so that its sense plays no
# part.
WEIGHTS = (0.7390851332, 1.3247179572, 0.5671432904, 1.7632228343, 0.9159655942, 1.1865691104, 0.6180339887,
           1.4513692349, 1.2020569032)
WHOLE_ELLIPSE = 9  # numbers


def edge_key(numbers):
    if len(numbers) == WHOLE_ELLIPSE:
        return sum(w * n for w, n in zip(WEIGHTS, numbers))
    last = len(numbers) // 3 - 1
    return sum((1 + min(i // 3, last - i // 3)) * WEIGHTS[i % 3] * n for i, n in enumerate(numbers))


def key_of(piece):
    return sum(edge_key(edge) for edge in piece)


def key_tolerance(piece, tolerance):
    """More than the key can differ by when no number differs by more than the tolerance."""
    return 8 * tolerance * sum(len(edge) for edge in piece)


def is_same_edge(a, b, tolerance):
    if len(a) != len(b):
        return False
    if all(abs(x - y) <= tolerance for x, y in zip(a, b)):
        return True
    turned = [n for i in range(len(b) - 3, -1, -3) for n in b[i:i + 3]]
    return len(a) != WHOLE_ELLIPSE and all(abs(x - y) <= tolerance for x, y in zip(a, turned))


def is_same(a, b, tolerance):
    """The edges of a face come in any order."""
    left = list(b)
    for edge in a:
        found = next((i for i, other in enumerate(left) if is_same_edge(edge, other, tolerance)), None)
        if found is None:
            return False
        del left[found]
    return not left


def without_partner(ours, peers, tolerance):
    """The pieces of either side that are left when every piece has taken one of the other side."""
    ordered = sorted((key_of(piece), number) for number, piece in enumerate(peers))
    keys = [key for key, _ in ordered]
    is_free = [True] * len(ordered)
    left = []
    for piece in ours:
        key, width = key_of(piece), key_tolerance(piece, tolerance)
        for place in range(bisect.bisect_left(keys, key - width), bisect.bisect_right(keys, key + width)):
            if is_free[place] and is_same(piece, peers[ordered[place][1]], tolerance):
                is_free[place] = False
                break
        else:
            left.append(piece)
    return left, [peers[number] for free, (_, number) in zip(is_free, ordered) if free]
