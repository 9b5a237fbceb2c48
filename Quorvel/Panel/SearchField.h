#pragma once

#include "Quorvel/Model/AppModel.h"

#include <QLineEdit>

namespace quorvel {

/// Where a coin's name is typed. Shows and changes the model's search text.
class SearchField final : public QLineEdit {
    Q_OBJECT

public:
    /// @param model must outlive the field
    explicit SearchField(AppModel& model, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvel
