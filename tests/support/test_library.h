#pragma once

#include <QString>
#include <QTemporaryDir>
#include <vector>

// A row of table Forms for a test.
struct TestForm {
    QString title;
    QString category;
    QString subCategory;
    QString content; // plain text; it is stored as a rich text document
    int favorite = 0;
};

// A program folder with an encrypted library in its folder Data, made for one test.
class TestLibrary {
public:
    explicit TestLibrary(const std::vector<TestForm>& forms);

    QString Folder() const { return m_folder.path(); }
    QString Path() const { return m_folder.path() + QStringLiteral("/Data/Forms.dat"); }
    bool IsMade() const { return m_made; }

private:
    QTemporaryDir m_folder;
    bool m_made = false;
};

// A handful of forms over several categories, for tests that only need something to browse.
std::vector<TestForm> SomeForms();
