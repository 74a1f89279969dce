// Shows rows of two lines, of which the first can be typed over.
#pragma once

#include <QStyledItemDelegate>

namespace quelhost {

class TitleDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override
    {
        QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
        editor->setObjectName(QStringLiteral("title"));
        editor->setAccessibleName(qtTrId("toolbars-name"));
        return editor;
    }

    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override
    {
        QStyledItemDelegate::updateEditorGeometry(editor, option, index);
        editor->resize(option.rect.right() - editor->x(), editor->sizeHint().height());
    }
};

} // namespace quelhost
