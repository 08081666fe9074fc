#include "schema/modConnectionDelete.h"

#include "platform/dialogs.h"
#include "platform/error.h"
#include "repository/modVellumark.h"

namespace vellumark {

namespace {

dao::Recordset SchemasOf(int id) {
    return RepositoryDatabase.OpenRecordset(
        "select * from [Database] where [FK CON Id Source] = ? or [FK CON Id Target] = ?", {id, id});
}

dao::Recordset SourcesOf(int id) {
    return RepositoryDatabase.OpenRecordset("select * from [Value Source] where [FK CON Id] = ?", {id});
}

// A source whose Column rule has turned to other values doesn't count.
bool ServesRule(const dao::Recordset& source) {
    return !RepositoryDatabase
                .OpenRecordset(
                    "select * from [TSO Insert Column Rule] where [FK DBS Id] = ? and [FK TSO Id] = ?"
                    " and [FK TAB Id] = ? and [FK COL Id] = ? and [FK TTR Id] = ? and [Id] = ?"
                    " and [Code Generate Data Type] = 'V'",
                    {source.Long("FK DBS Id"), source.Long("FK TSO Id"), source.Long("FK TAB Id"),
                     source.Long("FK COL Id"), source.Long("FK TTR Id"), source.Long("FK TCR Id")})
                .IsEOF();
}

bool fRefuse(const std::string& reason) {
    return platform::Refuse("Unable to delete this connection\n" + reason);
}

bool fIsUnused(int id) {
    const dao::Recordset schema = SchemasOf(id);
    if (!schema.IsEOF())
        return fRefuse("It is being used by database " + schema.Text("Name"));
    for (dao::Recordset source = SourcesOf(id); !source.IsEOF(); source.MoveNext())
        if (ServesRule(source))
            return fRefuse("It has been selected for use in data generation.");
    return true;
}

std::string NameOf(const std::string& sql, const dao::Parameters& keys) {
    return dao::ToText(RepositoryDatabase.Lookup(sql, keys));
}

std::string RuleServed(const dao::Recordset& source) {
    const int schema = source.Long("FK DBS Id");
    const int table = source.Long("FK TAB Id");
    return NameOf("select [Name] from [Table] where [FK DBS Id] = ? and [Id] = ?", {schema, table}) + "." +
           NameOf("select [Name] from [Column] where [FK DBS Id] = ? and [FK TAB Id] = ? and [Id] = ?",
                  {schema, table, source.Long("FK COL Id")}) +
           " in " + NameOf("select [Name] from [Database] where [Id] = ?", {schema}) + ", " +
           NameOf("select [Name] from [Test Scenario] where [FK DBS Id] = ? and [Id] = ?",
                  {schema, source.Long("FK TSO Id")});
}

}  // namespace

std::vector<std::string> ConnectionUses(int id) {
    const RepositoryScope repository;
    std::vector<std::string> uses;
    for (dao::Recordset schema = SchemasOf(id); !schema.IsEOF(); schema.MoveNext()) {
        if (schema.Long("FK CON Id Source") == id)
            uses.push_back("Source of " + schema.Text("Name"));
        if (schema.Long("FK CON Id Target") == id)
            uses.push_back("Target of " + schema.Text("Name"));
    }
    for (dao::Recordset source = SourcesOf(id); !source.IsEOF(); source.MoveNext())
        if (ServesRule(source))
            uses.push_back(RuleServed(source));
    return uses;
}

bool fMayDeleteConnection(int id) {
    try {
        const RepositoryScope repository;
        return fIsUnused(id) && platform::AskYesNo("Do you really want to delete this Connection?");
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("deleting the connection", error);
        return false;
    }
}

bool fDeleteConnection(int id) {
    try {
        const RepositoryScope repository;
        if (!fMayDeleteConnection(id))
            return false;
        RepositoryDatabase.Execute("delete * from [Database Connection] where [Id] = ?", {id});
        return true;
    } catch (const platform::Error& error) {
        platform::ShowUnexpectedError("deleting the connection", error);
        return false;
    }
}

}  // namespace vellumark
