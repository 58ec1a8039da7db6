#pragma once
// Faulty goods on the shelf go to the problem stock. The clerk finds an
// article, states how many pieces and the fault, and collects rows below;
// one confirmation takes the pieces out of stock, one cost layer per piece,
// and writes one problem-stock row per collected row with their summed cost.
#include <memory>

#include "Form.h"

namespace Ui {
class frmQuestion;
}

class frmQuestion : public Form {
    Q_OBJECT
public:
    explicit frmQuestion(QWidget* parent = nullptr);
    ~frmQuestion() override;

    Ui::frmQuestion* ui() { return ui_.get(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LoadGoods();
    void BindGoods(const QString& sql);
    void InitQuestionGrid();
    void txtNo_Enter();
    bool QuantityPasses();
    void cmdAddQuestion_Click();
    void AddQuestionRow(const QString& GUID);
    void cmdOk_Click();

    std::unique_ptr<Ui::frmQuestion> ui_;
};
