#pragma once
// Welcome: the small window shown while the session loads, with the loader's
// status texts.
#include <QLabel>
#include <QWidget>

namespace kestrin::ui {

class Welcome : public QWidget {
    Q_OBJECT
public:
    explicit Welcome(QWidget* parent = nullptr);
    void setStatus(const QString& text);
    QString status() const { return status_->text(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* status_;
};

}  // namespace kestrin::ui
