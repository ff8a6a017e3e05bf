// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace vtx::bench {

/// A table that reads as well on a terminal as in a document: the columns are padded.
class MarkdownTable {
public:
    using Row = std::vector<std::string>;

    /// The first column is aligned left, the others right.
    explicit MarkdownTable(Row heading) : rows_{std::move(heading)} {}

    /// As many cells as the heading has.
    void add(Row row) { rows_.push_back(std::move(row)); }

    [[nodiscard]] std::string text() const;

private:
    std::vector<Row> rows_;  ///< the first one is the heading
};

}  // namespace vtx::bench
