#pragma once

#include <QWidget>

/// A box with a thin line around it and a caption that breaks the line at its top left. Its
/// layout lies inside line and caption, whatever the font.
class GroupBoxUs : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)

public:
    explicit GroupBoxUs(QWidget *parent = nullptr);

    QString title() const { return caption; }
    void setTitle(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void LayOut();

    QString caption;
};
