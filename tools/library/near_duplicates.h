#pragma once

#include "library/form_texts.h"

namespace quillbrook {

constexpr int kShingleWords = 5;
constexpr double kMostAlike = 0.4;

// The runs of kShingleWords words that a text holds, capitals or not, as hashes; blanks and markup play no
// part. A text of fewer words has one run: all of them.
using Shingles = std::vector<quint64>; // sorted, without repeats

Shingles ShinglesOf(const std::vector<Word>& words);

// Shared runs as a part of all runs of both (Jaccard): 0 nothing in common, 1 the same. 0 when both are
// empty.
double Likeness(const Shingles& a, const Shingles& b);

// Two texts, by their places in the list, that are more alike than `most`.
struct AlikePair {
    std::size_t first = 0;
    std::size_t second = 0; // greater than `first`
    double likeness = 0;
};

std::vector<AlikePair> FindAlike(const std::vector<Shingles>& texts, double most = kMostAlike);

} // namespace quillbrook
