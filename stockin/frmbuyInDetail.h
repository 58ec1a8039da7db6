#pragma once
// Stock-in records of the shop: the history list with its total, and the
// removal or correction of one record as long as none of it has been sold.
#include <memory>

#include "Form.h"

namespace Ui {
class frmbuyInDetail;
}
class VSGrid;

class frmbuyInDetail : public Form {
    Q_OBJECT
public:
    explicit frmbuyInDetail(QWidget* parent = nullptr);
    ~frmbuyInDetail() override;

    Ui::frmbuyInDetail* ui() { return ui_.get(); }

    // The grand total row on "数量" at the end of the list.
    static void AddTotal(VSGrid* grid);
    // Whether goods of the record in the grid's current row have been sold:
    // its cost layer holds less than the record brought in. layerId is the
    // layer's ID, 0 when the record has none.
    static bool IsSold(VSGrid* grid, int32_t& layerId);
    // Takes a record back: its history row, its layer, and its share of the
    // goods row (the whole row when the record held all of its stock).
    static void RemoveRecord(const QString& guid, const QString& parentGuid, int32_t layerId,
                             int quantity, int storeQuantity);
    // The stock of the goods row, as a whole number; false when there is no such row.
    static bool StoreQuantity(const QString& parentGuid, int& quantity);

private:
    void cmdQuery_Click();
    void cmdDel_Click();
    void cmdedit_Click();

    std::unique_ptr<Ui::frmbuyInDetail> ui_;
};
