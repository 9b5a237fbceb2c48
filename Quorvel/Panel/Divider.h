#pragma once

#include <QWidget>

namespace quorvel {

/// A hairline across the panel, one device pixel thick.
class Divider final : public QWidget {
    Q_OBJECT

public:
    explicit Divider(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvel
