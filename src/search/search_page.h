#pragma once

#include "search/search_mode.h"

#include <QObject>
#include <array>

class QLabel;
class QRadioButton;
namespace platform {
class ComboBox;
class Frame;
class ListBox;
class MyButton;
} // namespace platform

namespace quillbrook {

class QueryBox;
class ResultBlink;

// The Search page: the query box with its modes, the titles found, and the buttons that walk the hits.
class SearchPage final : public QObject {
    Q_OBJECT

public:
    // Builds its controls on `page`, which owns them.
    explicit SearchPage(QWidget* page);

    // The mode whose button is selected.
    SearchMode Mode() const;

    // Hides the buttons that walk the hits: the pane holds a form without marked ones.
    void HideHitControls();

    QLabel* lblSearch;
    QLabel* lblSearchGuide;
    QLabel* lblSearchGuide1;
    platform::Frame* fmeSearch;
    platform::ComboBox* cboQuery;
    platform::MyButton* cmdSearch;
    platform::Frame* fmeSearchMode;
    platform::Frame* fmeSearchResult;
    platform::ListBox* lstSearch;
    platform::MyButton* btnPreviousHit;
    platform::MyButton* btnNextHit;
    QLabel* lblDisplayHits;
    std::array<QRadioButton*, std::size(kSearchModes)> modeButtons; // optAND, optOR, optPHRASE
    std::array<QRadioButton*, std::size(kSearchModes)> twinButtons; // optAND1, optOR1, optPHRASE1

    QueryBox* queryBox;
    ResultBlink* resultBlink;

private:
    void BuildQuery(QWidget* page);
    void BuildModes(QWidget* page);
    void BuildResult(QWidget* page);
    void ConnectModes();
};

} // namespace quillbrook
