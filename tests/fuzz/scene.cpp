#include "scene.h"

#include "schema/modConnectionRows.h"

namespace vellumark::fuzz {

void CountingDialogs::Message(platform::Icon, const std::string& text) {
    ++shown;
    last = text;
}

CountingDialogs& UseCountingDialogs() {
    static CountingDialogs dialogs;
    platform::UseDialogs(dialogs);
    dialogs.shown = 0;
    dialogs.last.clear();
    return dialogs;
}

Scene& Scene::Get() {
    static Scene scene;
    return scene;
}

Scene::Scene() {
    SetUp();
    MakeSchema("Shop", 'T');
    const RepositoryScope repository;
    const int target = NextConnectionId();
    fCreateTargetPlaceholder(target, "Shop");
    RepositoryDatabase.Execute("update [Database] set [FK CON Id Target] = ? where [Id] = ?",
                               {target, CurrentDBSId});
    CurrentTSOId = 1;
}

Scene::~Scene() {
    TearDown();
}

int Untouched::Count(const std::string& table) const {
    return dao::ToLong(RepositoryDatabase.Lookup("select count(*) from [" + table + "]"));
}

}  // namespace vellumark::fuzz
