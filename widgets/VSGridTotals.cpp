// The grid's subtotal facility and the merging of equal neighbours.
#include <QTimer>
#include <algorithm>

#include "VSGridModel.h"

// ---- subtotals

void VSGrid::Subtotal(SubtotalFunction fn, int groupOn, int totalOn, const QString& format,
                      QColor foreColor, bool bold, const QString& caption, bool above) {
    const std::vector<GridRow>& old = model_->rows_;
    if (fn == SubtotalClear &&
        std::none_of(old.begin(), old.end(), [](const GridRow& r) { return r.subtotal(); })) {
        return;
    }
    const int oldCur = Row();
    std::vector<GridRow> rows;
    rows.reserve(old.size() + 1);
    rows.push_back(old[0]);
    std::vector<int> moved(old.size(), 0);  // old row -> new row, 0 when gone

    auto makeTotal = [&](double sum, int captionCol, const QString& text) {
        GridRow row;
        RowOwn& t = row.edit();
        t.subtotal = true;
        t.level = -1;
        t.fore = foreColor;
        t.bold = bold;
        t.cells.resize(Cols() - 1);
        if (captionCol >= 0 && !text.isEmpty()) {
            if (captionCol == 0)
                t.title = text;
            else
                t.cells[captionCol - 1] = text;
        }
        if (totalOn >= 1 && totalOn < Cols()) {
            t.cells[totalOn - 1] = Convert::Formatted(sum, format);
        } else if (totalOn == 0) {
            t.title = Convert::Formatted(sum, format);
        }
        return row;
    };
    const bool sums = totalOn >= 0 && totalOn < Cols();

    if (fn == SubtotalClear || groupOn < 0) {
        // Drop every total row; a grand total then adds its one row.
        double sum = 0;
        for (int r = 1; r < Rows(); ++r) {
            if (old[size_t(r)].subtotal()) continue;
            if (sums) sum += model_->numeric(r, totalOn);
            rows.push_back(old[size_t(r)]);
            moved[size_t(r)] = int(rows.size()) - 1;
        }
        if (fn == SubtotalSum) {
            int captionCol = 0;
            for (int c = 1; c < Cols(); ++c) {
                if (!ColHidden(c)) {
                    captionCol = c;
                    break;
                }
            }
            if (captionCol == totalOn) captionCol = 0;
            GridRow t = makeTotal(sum, captionCol, caption);
            if (above) {
                rows.insert(rows.begin() + 1, std::move(t));
                for (int& m : moved) m += m > 0 ? 1 : 0;
            } else {
                rows.push_back(std::move(t));
            }
        }
    } else {
        if (groupOn >= Cols()) return;
        // Outline totals: a total row belongs to the level of the column it
        // groups on. A run of equal values in that column is one group; total
        // rows of a deeper level go along inside it, those of a shallower
        // level end it, and a group that already has its total row at this
        // level gets the new sum in that row rather than a second row.
        // Grouped on the fixed column every row is in one group, and the
        // caption stands in column 1.
        const int captionCol = groupOn == 0 ? std::min(1, Cols() - 1) : groupOn;
        struct Group {
            std::vector<int> members;  // old rows, data and deeper totals
            int total = 0;             // the old total row of this level, 0 for none
            bool keyed = false;
            QString key;
            double sum = 0;
        };
        std::vector<Group> groups;
        std::vector<std::pair<int, int>> order;  // (old row, 0) or (-1, group index)
        auto open = [&]() -> Group& {
            groups.push_back({});
            order.emplace_back(-1, int(groups.size()) - 1);
            return groups.back();
        };
        Group* cur = nullptr;
        for (int r = 1; r < Rows(); ++r) {
            const RowOwn& row = old[size_t(r)].look();
            if (row.subtotal && row.level >= 0 && row.level < groupOn) {
                cur = nullptr;  // a shallower total ends the group
                order.emplace_back(r, 0);
                continue;
            }
            if (row.subtotal && row.level == groupOn) {
                if (above || !cur || cur->total != 0) cur = &open();
                cur->total = r;
                if (!above) cur = nullptr;
                continue;
            }
            if (row.subtotal) {  // deeper, or a grand total of another kind
                if (!cur) cur = &open();
                cur->members.push_back(r);
                continue;
            }
            const QString key = model_->text(r, groupOn);
            if (!cur || (cur->keyed && cur->key != key)) cur = &open();
            if (!cur->keyed) {
                cur->keyed = true;
                cur->key = key;
            }
            cur->members.push_back(r);
            if (sums) cur->sum += model_->numeric(r, totalOn);
        }
        for (const auto& [r, g] : order) {
            if (r > 0) {
                rows.push_back(old[size_t(r)]);
                moved[size_t(r)] = int(rows.size()) - 1;
                continue;
            }
            Group& grp = groups[size_t(g)];
            GridRow t;
            if (grp.total > 0) {
                t = old[size_t(grp.total)];
                RowOwn& own = t.edit();
                own.fore = foreColor;
                own.bold = bold;
                if (sums) {
                    if (totalOn == 0)
                        own.title = Convert::Formatted(grp.sum, format);
                    else
                        own.cells[totalOn - 1] = Convert::Formatted(grp.sum, format);
                }
            } else {
                t = makeTotal(grp.sum, captionCol, caption.isEmpty() ? grp.key : caption);
                t.edit().level = groupOn;
            }
            auto place = [&] {
                rows.push_back(std::move(t));
                if (grp.total > 0) moved[size_t(grp.total)] = int(rows.size()) - 1;
            };
            if (above) place();
            for (int m : grp.members) {
                rows.push_back(old[size_t(m)]);
                moved[size_t(m)] = int(rows.size()) - 1;
            }
            if (!above) place();
        }
    }

    beginQuiet();
    const int col = Col();
    model_->replaceRows(std::move(rows));
    clearSpans();
    spansSet_ = false;
    applyColumnLook();
    int cur = 0;
    bool gone = false;
    if (oldCur > 0) {
        cur = moved[size_t(oldCur)];
        if (cur == 0) {
            gone = true;
            cur = std::min(oldCur, Rows() - 1);
        }
    }
    moveCurrent(cur, col);
    scheduleMerge();
    endQuiet(gone);
}

bool VSGrid::IsSubtotal(int row) const {
    return row >= 1 && row < Rows() && model_->rows_[size_t(row)].subtotal();
}

double VSGrid::Sum(int col, int r1, int r2) const {
    if (col < 0 || col >= Cols()) return 0;
    if (r1 > r2) std::swap(r1, r2);
    r1 = std::max(r1, 0);
    r2 = std::min(r2, Rows() - 1);
    double sum = 0;
    for (int r = r1; r <= r2; ++r) sum += model_->numeric(r, col);
    return sum;
}

// ---- look

void VSGrid::setMergeCells(bool on) {
    mergeCells_ = on;
    scheduleMerge();
}

void VSGrid::setMergeCol(int col, bool on) {
    if (col < 1 || col >= Cols()) return;
    model_->cols_[size_t(col)].merge = on;
    scheduleMerge();
}

void VSGrid::scheduleMerge() {
    if (mergeCells_ || spansSet_) mergeTimer_->start();
}

// Spans equal, non-empty neighbours of the merging columns; a total row is
// never merged with the rows around it.
void VSGrid::recomputeMerge() {
    if (spansSet_) clearSpans();
    spansSet_ = false;
    if (!mergeCells_) return;
    for (int c = 1; c < Cols(); ++c) {
        if (!model_->cols_[size_t(c)].merge) continue;
        int r = 1;
        while (r < Rows()) {
            int end = r + 1;
            if (!IsSubtotal(r) && !model_->emptyText(r, c)) {
                while (end < Rows() && !IsSubtotal(end) && model_->sameText(r, end, c)) ++end;
            }
            if (end - r > 1) {
                setSpan(r - 1, c - 1, end - r, 1);
                spansSet_ = true;
            }
            r = end;
        }
    }
}
