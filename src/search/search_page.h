#pragma once

#include <QObject>

class QLabel;
namespace platform {
class ComboBox;
class Frame;
class ListBox;
class MyButton;
} // namespace platform

namespace quillbrook {

class ResultBlink;

// The Search page: the query box, the titles found, and the buttons that walk the hits.
class SearchPage final : public QObject {
    Q_OBJECT

public:
    // Builds its controls on `page`, which owns them.
    explicit SearchPage(QWidget* page);

    // Hides the buttons that walk the hits: the pane holds a form without marked ones.
    void HideHitControls();

    QLabel* lblSearch;
    QLabel* lblSearchGuide;
    QLabel* lblSearchGuide1;
    platform::Frame* fmeSearch;
    platform::ComboBox* cboQuery;
    platform::Frame* fmeSearchResult;
    platform::ListBox* lstSearch;
    platform::MyButton* btnPreviousHit;
    platform::MyButton* btnNextHit;
    QLabel* lblDisplayHits;
    ResultBlink* resultBlink;
};

} // namespace quillbrook
