#pragma once

#include <QWidget>
#include <functional>
#include <string>

namespace vellumark::test {

// Where the pictures go: a folder with one PNG file for each screen. What AccessFaults finds on a screen is
// printed to standard error and counted.
class Album {
 public:
    explicit Album(std::string folder) : folder_(std::move(folder)) {}

    // Shows the screen, lets it settle and keeps its picture as NAME.png.
    void Take(const std::string& name, QWidget& screen) const;

    // Does the same from inside the event loop of a modal screen that `open` brings up, and closes it.
    // `prepare` brings it into the state worth showing.
    void TakeModal(const std::string& name, const std::function<void()>& open,
                   const std::function<void(QWidget&)>& prepare = {}) const;

    int Faults() const { return faults_; }

 private:
    std::string folder_;
    mutable int faults_ = 0;
};

// One function a file of pictures, called in this order by main. The schema "Shop" with a filled Insert
// Scenario is open before each.
void ShootMainScreens(const Album& album);
void ShootPlatformScreens(const Album& album);
void ShootConnections(const Album& album);
void ShootSchemaList(const Album& album);
void ShootGridWeaver(const Album& album);
void ShootValueSource(const Album& album);
void ShootSchemaEditor(const Album& album);
void ShootGenericValues(const Album& album);
void ShootForeignKeys(const Album& album);
void ShootRepositoryScreens(const Album& album);
void ShootColumnDetails(const Album& album);
void ShootGenerateData(const Album& album);
void ShootTableScreens(const Album& album);
void ShootRuleScreen(const Album& album);
void ShootVersionControl(const Album& album);
void ShootLoadFiles(const Album& album);
void ShootSQLBuilder(const Album& album);
void ShootViewData(const Album& album);
void ShootHelp(const Album& album);

}  // namespace vellumark::test
