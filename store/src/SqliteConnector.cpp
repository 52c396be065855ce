#include "SqliteConnector.h"

#include <cerrno>
#include <chrono>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Util_p.h"
#include "velbrook/StoreBase.h"

namespace vb {

const char* const kTrafficCounterNames[7] = {"RCPTCommands",  "SMTPBytesReceived", "SMTPBytesSent",
                                             "IMAPBytesSent", "IMAPBytesReceived", "POPBytesSent",
                                             "POPBytesReceived"};

int trafficCounterIndex(std::string_view name)
{
    for (int i = 0; i < 7; ++i)
        if (equalsFolded(name, kTrafficCounterNames[i]))
            return i;
    return -1;
}

int64_t nowMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

// ---- statements --------------------------------------------------------------------------------

Stmt::~Stmt()
{
    if (m_s) {
        sqlite3_reset(m_s);
        sqlite3_clear_bindings(m_s);
    }
}

Stmt& Stmt::bind(int i, int64_t v)
{
    sqlite3_bind_int64(m_s, i, v);
    return *this;
}

Stmt& Stmt::bind(int i, std::string_view text)
{
    sqlite3_bind_text64(m_s, i, text.data() ? text.data() : "", text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    return *this;
}

Stmt& Stmt::bindBlob(int i, std::string_view bytes)
{
    sqlite3_bind_blob64(m_s, i, bytes.data() ? bytes.data() : "", bytes.size(), SQLITE_TRANSIENT);
    return *this;
}

Stmt& Stmt::bindNull(int i)
{
    sqlite3_bind_null(m_s, i);
    return *this;
}

std::string Stmt::text(int col) const
{
    const auto* p = reinterpret_cast<const char*>(sqlite3_column_blob(m_s, col));
    const int n = sqlite3_column_bytes(m_s, col);
    return p ? std::string(p, size_t(n)) : std::string();
}

// ---- errors and transactions -------------------------------------------------------------------

static uint32_t mapSqlite(int rc)
{
    switch (rc & 0xff) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE: return 0;
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return VB_ERROR_BUSY;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH: return VB_ERROR_ACCESS_DENIED;
    case SQLITE_NOTADB: return VB_ERROR_BAD_FILE;
    case SQLITE_CORRUPT: return VB_ERROR_INVALID_DATA;
    case SQLITE_CONSTRAINT: return VB_ERROR_ALREADY_EXISTS;
    case SQLITE_TOOBIG: return VB_ERROR_PROPERTY_TOO_LARGE;
    case SQLITE_FULL: return VB_ERROR_DISK_FULL;
    case SQLITE_NOMEM: return VB_ERROR_NOT_ENOUGH_MEMORY;
    case SQLITE_CANTOPEN: return VB_ERROR_FILE_NOT_FOUND;
    case SQLITE_IOERR: return VB_ERROR_IO_DEVICE;
    default: return VB_ERROR_STORE_FAILURE;
    }
}

uint32_t SqliteConnector::fail(int rc) { return mapSqlite(rc); }
uint32_t SqliteConnector::readOnlyError() const { return m_readOnly ? VB_ERROR_ACCESS_DENIED : 0; }

class SqliteConnector::Tx {
public:
    explicit Tx(SqliteConnector& c) : m_c(c) { m_error = m_c.begin(); }
    ~Tx()
    {
        if (!m_done && !m_error)
            m_c.rollback();
    }
    uint32_t error() const { return m_error; }
    uint32_t commit()
    {
        m_done = true;
        return m_c.commit();
    }

private:
    SqliteConnector& m_c;
    uint32_t m_error = 0;
    bool m_done = false;
};

uint32_t SqliteConnector::begin()
{
    std::lock_guard lock(m_mutex);
    if (m_readOnly)
        return VB_ERROR_ACCESS_DENIED;
    // Nested transactions are savepoints, so that an inner failure undoes only its own work.
    Stmt s = prepare(m_depth == 0 ? "BEGIN IMMEDIATE" : "SAVEPOINT vb_nested");
    if (!s)
        return VB_ERROR_STORE_FAILURE;
    const int rc = s.step();
    if (rc != SQLITE_DONE)
        return fail(rc);
    if (m_depth++ == 0)
        m_mutex.lock(); // held until the outermost commit or rollback
    return 0;
}

uint32_t SqliteConnector::commit()
{
    std::lock_guard lock(m_mutex);
    if (m_depth == 0)
        return 0;
    if (m_depth > 1) {
        Stmt s = prepare("RELEASE vb_nested");
        const int rc = s.step();
        --m_depth;
        return rc == SQLITE_DONE ? 0 : fail(rc);
    }
    Stmt s = prepare("COMMIT");
    const int rc = s.step();
    uint32_t error = 0;
    if (rc != SQLITE_DONE) {
        error = fail(rc);
        sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    m_depth = 0;
    m_mutex.unlock();
    return error;
}

void SqliteConnector::rollback()
{
    std::lock_guard lock(m_mutex);
    if (m_depth == 0)
        return;
    if (m_depth > 1) {
        sqlite3_exec(m_db, "ROLLBACK TO vb_nested; RELEASE vb_nested", nullptr, nullptr, nullptr);
        --m_depth;
        return;
    }
    sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
    m_depth = 0;
    m_mutex.unlock();
}

Stmt SqliteConnector::prepare(const char* sql)
{
    auto it = m_cache.find(sql);
    if (it != m_cache.end())
        return Stmt(it->second);
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v3(m_db, sql, -1, SQLITE_PREPARE_PERSISTENT, &s, nullptr) != SQLITE_OK) {
        sqlite3_finalize(s);
        return Stmt(nullptr);
    }
    m_cache.emplace(sql, s);
    return Stmt(s);
}

uint32_t SqliteConnector::exec(const char* sql)
{
    return fail(sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr));
}

// ---- opening ----------------------------------------------------------------------------------

static const char* const kSchemaV1 = R"SQL(
CREATE TABLE vb_schema(version INTEGER NOT NULL, created INTEGER NOT NULL);
CREATE TABLE object(
  id INTEGER PRIMARY KEY,
  kind INTEGER NOT NULL,
  parent INTEGER REFERENCES object(id) ON DELETE CASCADE,
  name_key TEXT NOT NULL,
  name TEXT NOT NULL,
  password BLOB);
CREATE UNIQUE INDEX object_name ON object(kind, parent, name_key);
CREATE INDEX object_parent ON object(parent);
INSERT INTO object(id, kind, parent, name_key, name) VALUES (0, 0, NULL, '', '');
CREATE TABLE property(
  owner INTEGER NOT NULL REFERENCES object(id) ON DELETE CASCADE,
  section_key TEXT NOT NULL,
  name_key TEXT NOT NULL,
  section TEXT NOT NULL,
  name TEXT NOT NULL,
  type INTEGER NOT NULL,
  value,
  PRIMARY KEY(owner, section_key, name_key)) WITHOUT ROWID;
CREATE TABLE list_element(
  id INTEGER PRIMARY KEY,
  owner INTEGER NOT NULL REFERENCES object(id) ON DELETE CASCADE,
  section_key TEXT NOT NULL,
  name_key TEXT NOT NULL,
  element_key TEXT NOT NULL,
  element TEXT NOT NULL);
CREATE UNIQUE INDEX list_element_key ON list_element(owner, section_key, name_key, element_key);
CREATE INDEX list_element_order ON list_element(owner, section_key, name_key, id);
CREATE TRIGGER property_list_retyped AFTER UPDATE OF type ON property WHEN old.type = 7 AND new.type <> 7
BEGIN
  DELETE FROM list_element WHERE owner = old.owner AND section_key = old.section_key AND name_key = old.name_key;
END;
CREATE TRIGGER property_list_deleted AFTER DELETE ON property WHEN old.type = 7
BEGIN
  DELETE FROM list_element WHERE owner = old.owner AND section_key = old.section_key AND name_key = old.name_key;
END;
CREATE TABLE traffic(
  mailbox INTEGER PRIMARY KEY REFERENCES object(id) ON DELETE CASCADE,
  domain INTEGER NOT NULL,
  c0 INTEGER NOT NULL DEFAULT 0, c1 INTEGER NOT NULL DEFAULT 0, c2 INTEGER NOT NULL DEFAULT 0,
  c3 INTEGER NOT NULL DEFAULT 0, c4 INTEGER NOT NULL DEFAULT 0, c5 INTEGER NOT NULL DEFAULT 0,
  c6 INTEGER NOT NULL DEFAULT 0);
CREATE INDEX traffic_domain ON traffic(domain);
CREATE TABLE synonym(
  name_key TEXT PRIMARY KEY,
  name TEXT NOT NULL,
  domain INTEGER NOT NULL REFERENCES object(id) ON DELETE CASCADE);
CREATE INDEX synonym_domain ON synonym(domain, name_key);
CREATE TABLE mailbox_alias(
  domain INTEGER NOT NULL REFERENCES object(id) ON DELETE CASCADE,
  name_key TEXT NOT NULL,
  name TEXT NOT NULL,
  mailbox INTEGER NOT NULL REFERENCES object(id) ON DELETE CASCADE,
  PRIMARY KEY(domain, name_key));
CREATE INDEX mailbox_alias_mailbox ON mailbox_alias(mailbox);
CREATE TABLE service(
  name_key TEXT PRIMARY KEY,
  name TEXT NOT NULL,
  ordinal INTEGER NOT NULL,
  controller TEXT NOT NULL,
  unit TEXT NOT NULL DEFAULT '',
  state INTEGER NOT NULL DEFAULT 1,
  pending_state INTEGER NOT NULL DEFAULT 0,
  final_state INTEGER NOT NULL DEFAULT 0,
  pending_until INTEGER NOT NULL DEFAULT 0);
CREATE TABLE route(seq INTEGER PRIMARY KEY, domain_mask TEXT NOT NULL, rule INTEGER NOT NULL);
CREATE TABLE route_host(
  route INTEGER NOT NULL REFERENCES route(seq) ON DELETE CASCADE,
  seq INTEGER NOT NULL,
  host TEXT NOT NULL,
  port INTEGER NOT NULL,
  preference INTEGER NOT NULL,
  PRIMARY KEY(route, seq));
CREATE TABLE alias_mapping(seq INTEGER PRIMARY KEY, alias TEXT NOT NULL, target TEXT NOT NULL);
CREATE TABLE retry_request(id INTEGER PRIMARY KEY, name TEXT NOT NULL, requested INTEGER NOT NULL);
)SQL";

// Schema steps: kMigrations[i] takes a store from version i to version i + 1.
static const char* const kMigrations[] = {kSchemaV1};

static std::string uriEscape(const std::string& path)
{
    static const char hex[] = "0123456789ABCDEF";
    std::string out;
    for (unsigned char c : path) {
        if (c == '%' || c == '?' || c == '#' || c < 0x20 || c >= 0x7f) {
            out += '%';
            out += hex[c >> 4];
            out += hex[c & 15];
        } else {
            out += char(c);
        }
    }
    return out;
}

SqliteConnector::~SqliteConnector()
{
    for (auto& [sql, s] : m_cache)
        sqlite3_finalize(s);
    m_cache.clear();
    if (m_db)
        sqlite3_close_v2(m_db);
}

std::unique_ptr<Connector> openSqliteConnector(const std::string& path, uint32_t& error)
{
    return SqliteConnector::open(path, error);
}

std::unique_ptr<SqliteConnector> SqliteConnector::open(const std::string& path, uint32_t& error)
{
    error = 0;
    if (path.empty() || path.find('\0') != std::string::npos) {
        error = VB_ERROR_INVALID_PARAMETER;
        return nullptr;
    }
    std::unique_ptr<SqliteConnector> c(new SqliteConnector);
    c->m_path = path;

    struct stat st {};
    const bool exists = ::stat(path.c_str(), &st) == 0;
    if (exists && !S_ISREG(st.st_mode)) {
        error = VB_ERROR_BAD_FILE;
        return nullptr;
    }
    if (!exists) {
        // Create it ourselves so that it never exists with a wider mode; SQLite gives the -wal and -shm
        // files the mode of the database file.
        const int fd = ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
        if (fd < 0 && errno != EEXIST) {
            error = errno == EACCES || errno == EROFS ? VB_ERROR_ACCESS_DENIED : VB_ERROR_PATH_NOT_FOUND;
            return nullptr;
        }
        if (fd >= 0) {
            ::fchmod(fd, 0600);
            ::close(fd);
        }
    }
    c->m_readOnly = ::access(path.c_str(), W_OK) != 0;

    const int flags = (c->m_readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE) | SQLITE_OPEN_FULLMUTEX;
    int rc = sqlite3_open_v2(path.c_str(), &c->m_db, flags, nullptr);
    if (rc == SQLITE_OK)
        c->initialise(error);
    else
        error = mapSqlite(rc);
    if (error && c->m_readOnly && error != VB_ERROR_BAD_FILE) {
        // A read-only WAL store in a folder we cannot write to: read it as an immutable file.
        for (auto& [sql, s] : c->m_cache)
            sqlite3_finalize(s);
        c->m_cache.clear();
        sqlite3_close_v2(c->m_db);
        c->m_db = nullptr;
        const std::string uri = "file:" + uriEscape(path) + "?immutable=1";
        rc = sqlite3_open_v2(uri.c_str(), &c->m_db, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_FULLMUTEX,
                             nullptr);
        error = rc == SQLITE_OK ? 0 : mapSqlite(rc);
        if (!error)
            c->initialise(error);
    }
    if (error)
        return nullptr;
    return c;
}

// The version a store's schema is at; false when it cannot be read.
static bool readSchemaVersion(sqlite3* db, uint32_t& version)
{
    sqlite3_stmt* s = nullptr;
    const bool ok = sqlite3_prepare_v2(db, "SELECT max(version) FROM vb_schema", -1, &s, nullptr) == SQLITE_OK
                    && sqlite3_step(s) == SQLITE_ROW;
    if (ok)
        version = uint32_t(sqlite3_column_int64(s, 0));
    sqlite3_finalize(s);
    return ok;
}

uint32_t SqliteConnector::initialise(uint32_t& error)
{
    sqlite3_busy_timeout(m_db, 5000);
    sqlite3_extended_result_codes(m_db, 0);
    exec("PRAGMA foreign_keys = ON");

    // Is it a store at all? Reading the schema fails on a file that is not a database.
    int tables = 0;
    bool hasSchema = false;
    {
        sqlite3_stmt* s = nullptr;
        int rc = sqlite3_prepare_v2(m_db, "SELECT name FROM sqlite_master WHERE type = 'table'", -1, &s, nullptr);
        while (rc == SQLITE_OK || rc == SQLITE_ROW) {
            if ((rc = sqlite3_step(s)) != SQLITE_ROW)
                break;
            ++tables;
            const char* n = reinterpret_cast<const char*>(sqlite3_column_text(s, 0));
            if (n && std::strcmp(n, "vb_schema") == 0)
                hasSchema = true;
        }
        sqlite3_finalize(s);
        if (rc != SQLITE_DONE) {
            error = rc == SQLITE_NOTADB || rc == SQLITE_CORRUPT ? VB_ERROR_BAD_FILE : mapSqlite(rc);
            return error;
        }
    }
    if (tables > 0 && !hasSchema) {
        error = VB_ERROR_BAD_FILE;
        return error;
    }
    if (!m_readOnly) {
        exec("PRAGMA journal_mode = WAL");
        exec("PRAGMA synchronous = NORMAL");
    }
    if (!hasSchema && m_readOnly) {
        error = VB_ERROR_BAD_FILE;
        return error;
    }

    uint32_t version = 0;
    if (hasSchema && !readSchemaVersion(m_db, version)) {
        error = VB_ERROR_BAD_FILE;
        return error;
    }
    if (version > kSchemaVersion) {
        error = VB_ERROR_BAD_FILE; // written by a newer release
        return error;
    }
    if (version < kSchemaVersion) {
        if (m_readOnly) {
            error = VB_ERROR_ACCESS_DENIED;
            return error;
        }
        error = migrate(version);
        if (error)
            return error;
    }
    m_version = kSchemaVersion;
    exec("CREATE TEMP TABLE IF NOT EXISTS traffic_report(report INTEGER NOT NULL, mailbox INTEGER NOT NULL, "
         "PRIMARY KEY(report, mailbox)) WITHOUT ROWID");
    return 0;
}

uint32_t SqliteConnector::migrate(uint32_t from)
{
    // Another process may be creating the same store: decide inside the write lock.
    if (uint32_t e = exec("BEGIN IMMEDIATE"))
        return e;
    uint32_t version = 0;
    readSchemaVersion(m_db, version); // no table yet: version 0
    (void)from;
    for (uint32_t v = version; v < kSchemaVersion; ++v) {
        if (uint32_t e = exec(kMigrations[v])) {
            exec("ROLLBACK");
            return e;
        }
    }
    if (version < kSchemaVersion) {
        sqlite3_stmt* s = nullptr;
        sqlite3_prepare_v2(m_db, "INSERT INTO vb_schema(version, created) VALUES (?, ?)", -1, &s, nullptr);
        sqlite3_bind_int64(s, 1, kSchemaVersion);
        sqlite3_bind_int64(s, 2, nowMs() / 1000);
        const int rc = sqlite3_step(s);
        sqlite3_finalize(s);
        if (rc != SQLITE_DONE) {
            exec("ROLLBACK");
            return mapSqlite(rc);
        }
    }
    return exec("COMMIT");
}

ConnectorInfo SqliteConnector::info() const
{
    ConnectorInfo i;
    i.connectorType = 0;
    i.schemaVersion = m_version;
    i.readOnly = m_readOnly;
    i.clustered = false;
    return i;
}

// ---- shapes every operation shares -------------------------------------------------------------

uint32_t SqliteConnector::stepDone(Stmt& s)
{
    const int rc = s.step();
    return rc == SQLITE_DONE ? 0 : fail(rc);
}

uint32_t SqliteConnector::stepChanged(Stmt& s, uint32_t notFound)
{
    if (uint32_t e = stepDone(s))
        return e;
    return sqlite3_changes(m_db) > 0 ? 0 : notFound;
}

uint32_t SqliteConnector::readTexts(Stmt& s, std::vector<std::string>& out)
{
    int rc;
    while ((rc = s.step()) == SQLITE_ROW)
        out.push_back(s.text(0));
    return rc == SQLITE_DONE ? 0 : fail(rc);
}

uint32_t SqliteConnector::readObject(Stmt& s, Kind kind, int64_t parent, ObjectRef& object)
{
    const int rc = s.step();
    if (rc == SQLITE_DONE)
        return VB_ERROR_FILE_NOT_FOUND;
    if (rc != SQLITE_ROW)
        return fail(rc);
    object.id = s.int64(0);
    object.name = s.text(1);
    object.kind = kind;
    object.parent = parent;
    return 0;
}

uint32_t SqliteConnector::readCount(Stmt& s, uint64_t& count)
{
    const int rc = s.step();
    if (rc != SQLITE_ROW)
        return fail(rc);
    count = uint64_t(s.int64(0));
    return 0;
}

template <class Work>
uint32_t SqliteConnector::writing(Work&& work)
{
    std::lock_guard lock(m_mutex);
    if (m_readOnly)
        return VB_ERROR_ACCESS_DENIED;
    return work();
}

template <class Work>
uint32_t SqliteConnector::transaction(Work&& work)
{
    return writing([&]() -> uint32_t {
        Tx tx(*this);
        if (tx.error())
            return tx.error();
        if (uint32_t e = work())
            return e; // the transaction rolls back
        return tx.commit();
    });
}

template <class Items, class Bind>
uint32_t SqliteConnector::insertEach(const char* sql, const Items& items, Bind&& bind)
{
    for (const auto& item : items) {
        Stmt s = prepare(sql);
        bind(s, item);
        if (uint32_t e = stepDone(s))
            return e;
    }
    return 0;
}

// ---- properties -------------------------------------------------------------------------------

uint32_t SqliteConnector::getCounter(const ObjectRef& mailbox, int counter, Value& value)
{
    Stmt s = prepare("SELECT c0, c1, c2, c3, c4, c5, c6 FROM traffic WHERE mailbox = ?");
    s.bind(1, mailbox.id);
    const int rc = s.step();
    if (rc != SQLITE_ROW && rc != SQLITE_DONE)
        return fail(rc);
    value.type = VB_TYPE_DWORD;
    value.number = rc == SQLITE_ROW ? uint32_t(s.int64(counter)) : 0;
    return 0;
}

uint32_t SqliteConnector::getProperty(const ObjectRef& owner, std::string_view section, std::string_view name,
                                      Value& value)
{
    std::lock_guard lock(m_mutex);
    const int counter = owner.kind == Kind::Mailbox ? trafficCounterIndex(name) : -1;
    if (counter >= 0)
        return getCounter(owner, counter, value);
    const std::string sk = fold(section), nk = fold(name);
    Stmt s = prepare("SELECT type, value FROM property WHERE owner = ? AND section_key = ? AND name_key = ?");
    if (!s)
        return VB_ERROR_STORE_FAILURE;
    s.bind(1, owner.id).bind(2, sk).bind(3, nk);
    const int rc = s.step();
    if (rc == SQLITE_DONE)
        return VB_ERROR_FILE_NOT_FOUND;
    if (rc != SQLITE_ROW)
        return fail(rc);
    value.type = uint32_t(s.int64(0));
    if (value.type == VB_TYPE_DWORD) {
        value.number = uint32_t(s.int64(1));
        return 0;
    }
    if (value.type == VB_TYPE_STRING) {
        value.text = s.text(1);
        return 0;
    }
    value.items.clear();
    Stmt e = prepare("SELECT element FROM list_element WHERE owner = ? AND section_key = ? AND name_key = ? "
                     "ORDER BY id");
    e.bind(1, owner.id).bind(2, sk).bind(3, nk);
    return readTexts(e, value.items);
}

uint32_t SqliteConnector::insertProperty(int64_t owner, std::string_view section, std::string_view name,
                                         const Value& v)
{
    Stmt s = prepare("INSERT INTO property(owner, section_key, name_key, section, name, type, value) "
                     "VALUES (?, ?, ?, ?, ?, ?, ?) "
                     "ON CONFLICT(owner, section_key, name_key) DO UPDATE SET type = excluded.type, "
                     "value = excluded.value");
    if (!s)
        return VB_ERROR_STORE_FAILURE;
    s.bind(1, owner).bind(2, fold(section)).bind(3, fold(name)).bind(4, section).bind(5, name).bind(6, v.type);
    if (v.type == VB_TYPE_DWORD)
        s.bind(7, int64_t(v.number));
    else if (v.type == VB_TYPE_STRING)
        s.bind(7, v.text);
    else
        s.bindNull(7);
    return stepDone(s);
}

uint32_t SqliteConnector::setCounter(const ObjectRef& mailbox, int counter, uint32_t number)
{
    static const char* const sql[7] = {
        "INSERT INTO traffic(mailbox, domain, c0) VALUES (?1, ?2, ?3) ON CONFLICT DO UPDATE SET c0 = ?3",
        "INSERT INTO traffic(mailbox, domain, c1) VALUES (?1, ?2, ?3) ON CONFLICT DO UPDATE SET c1 = ?3",
        "INSERT INTO traffic(mailbox, domain, c2) VALUES (?1, ?2, ?3) ON CONFLICT DO UPDATE SET c2 = ?3",
        "INSERT INTO traffic(mailbox, domain, c3) VALUES (?1, ?2, ?3) ON CONFLICT DO UPDATE SET c3 = ?3",
        "INSERT INTO traffic(mailbox, domain, c4) VALUES (?1, ?2, ?3) ON CONFLICT DO UPDATE SET c4 = ?3",
        "INSERT INTO traffic(mailbox, domain, c5) VALUES (?1, ?2, ?3) ON CONFLICT DO UPDATE SET c5 = ?3",
        "INSERT INTO traffic(mailbox, domain, c6) VALUES (?1, ?2, ?3) ON CONFLICT DO UPDATE SET c6 = ?3",
    };
    Stmt s = prepare(sql[counter]);
    s.bind(1, mailbox.id).bind(2, mailbox.parent).bind(3, int64_t(number));
    return stepDone(s);
}

uint32_t SqliteConnector::setProperty(const ObjectRef& owner, std::string_view section, std::string_view name,
                                      const Value& value)
{
    const int counter =
        owner.kind == Kind::Mailbox && value.type == VB_TYPE_DWORD ? trafficCounterIndex(name) : -1;
    if (counter >= 0)
        return writing([&] { return setCounter(owner, counter, value.number); });
    if (value.type != VB_TYPE_MULTI_STRING)
        return writing([&] { return insertProperty(owner.id, section, name, value); });
    return transaction([&]() -> uint32_t {
        if (uint32_t e = insertProperty(owner.id, section, name, value))
            return e;
        const std::string sk = fold(section), nk = fold(name);
        Stmt d = prepare("DELETE FROM list_element WHERE owner = ? AND section_key = ? AND name_key = ?");
        d.bind(1, owner.id).bind(2, sk).bind(3, nk);
        if (uint32_t e = stepDone(d))
            return e;
        return insertEach("INSERT OR IGNORE INTO list_element(owner, section_key, name_key, element_key, element) "
                          "VALUES (?, ?, ?, ?, ?)",
                          value.items, [&](Stmt& i, const std::string& item) {
                              i.bind(1, owner.id).bind(2, sk).bind(3, nk).bind(4, fold(item)).bind(5, item);
                          });
    });
}

uint32_t SqliteConnector::deleteProperty(const ObjectRef& owner, std::string_view section, std::string_view name)
{
    return writing([&] {
        Stmt s = prepare("DELETE FROM property WHERE owner = ? AND section_key = ? AND name_key = ?");
        s.bind(1, owner.id).bind(2, fold(section)).bind(3, fold(name));
        return stepChanged(s, VB_ERROR_FILE_NOT_FOUND);
    });
}

uint32_t SqliteConnector::propertyNames(const ObjectRef& owner, std::string_view section,
                                        std::vector<std::string>& names)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT name FROM property WHERE owner = ? AND section_key = ? ORDER BY name_key");
    s.bind(1, owner.id).bind(2, fold(section));
    return readTexts(s, names);
}

uint32_t SqliteConnector::sectionNames(std::vector<std::string>& sections)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT min(section) FROM property WHERE owner = 0 GROUP BY section_key ORDER BY section_key");
    return readTexts(s, sections);
}

uint32_t SqliteConnector::listLookup(const ObjectRef& owner, std::string_view section, std::string_view name,
                                     std::string_view element)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT 1 FROM list_element WHERE owner = ? AND section_key = ? AND name_key = ? "
                     "AND element_key = ?");
    s.bind(1, owner.id).bind(2, fold(section)).bind(3, fold(name)).bind(4, fold(element));
    const int rc = s.step();
    if (rc == SQLITE_ROW)
        return 0;
    return rc == SQLITE_DONE ? VB_ERROR_NOT_FOUND : fail(rc);
}

uint32_t SqliteConnector::listAdd(const ObjectRef& owner, std::string_view section, std::string_view name,
                                  std::string_view element)
{
    return transaction([&]() -> uint32_t {
        const std::string sk = fold(section), nk = fold(name);
        // The property row marks the list as existing (an emptied list still reads as an empty list).
        Stmt m = prepare("INSERT INTO property(owner, section_key, name_key, section, name, type, value) "
                         "VALUES (?, ?, ?, ?, ?, 7, NULL) ON CONFLICT(owner, section_key, name_key) "
                         "DO UPDATE SET type = 7, value = NULL WHERE type <> 7");
        m.bind(1, owner.id).bind(2, sk).bind(3, nk).bind(4, section).bind(5, name);
        if (uint32_t e = stepDone(m))
            return e;
        Stmt s = prepare("INSERT OR IGNORE INTO list_element(owner, section_key, name_key, element_key, element) "
                         "VALUES (?, ?, ?, ?, ?)");
        s.bind(1, owner.id).bind(2, sk).bind(3, nk).bind(4, fold(element)).bind(5, element);
        // Already there: the transaction rolls back, leaving nothing changed.
        return stepChanged(s, VB_ERROR_ALREADY_EXISTS);
    });
}

uint32_t SqliteConnector::listRemove(const ObjectRef& owner, std::string_view section, std::string_view name,
                                     std::string_view element)
{
    return writing([&] {
        Stmt s = prepare("DELETE FROM list_element WHERE owner = ? AND section_key = ? AND name_key = ? "
                         "AND element_key = ?");
        s.bind(1, owner.id).bind(2, fold(section)).bind(3, fold(name)).bind(4, fold(element));
        return stepChanged(s, VB_ERROR_NOT_FOUND);
    });
}

// ---- objects ----------------------------------------------------------------------------------

// One row of the snapshot query (below) into the snapshot: a property, a list element or the counters.
static void addSnapshotRow(Stmt& s, Snapshot& snapshot, uint32_t counters[7])
{
    const int tag = int(s.int64(3));
    if (tag == 0) {
        if (s.type(4) == SQLITE_NULL)
            return; // an object without properties
        Value& v = snapshot.values[s.text(4)];
        v.type = uint32_t(s.int64(6));
        if (v.type == VB_TYPE_DWORD)
            v.number = uint32_t(s.int64(7));
        else if (v.type == VB_TYPE_STRING)
            v.text = s.text(7);
    } else if (tag == 1) {
        auto it = snapshot.values.find(s.text(4));
        if (it != snapshot.values.end())
            it->second.items.push_back(s.text(7));
    } else {
        const std::string t = s.text(7);
        long long c[7] = {};
        if (std::sscanf(t.c_str(), "%lld %lld %lld %lld %lld %lld %lld", &c[0], &c[1], &c[2], &c[3], &c[4], &c[5],
                        &c[6]) == 7)
            for (int i = 0; i < 7; ++i)
                counters[i] = uint32_t(c[i]);
    }
}

uint32_t SqliteConnector::loadSnapshot(Kind kind, std::string_view parentName, std::string_view name,
                                       Snapshot& snapshot)
{
    std::lock_guard lock(m_mutex);
    // One round trip: the object, its properties, its list elements and (for a mailbox) its counters.
    Stmt s = prepare(R"SQL(
WITH o AS (SELECT id, parent, name FROM object
           WHERE kind = ?1 AND name_key = ?3
             AND parent = CASE WHEN ?1 = 1 THEN 0
                               ELSE (SELECT id FROM object WHERE kind = 1 AND parent = 0 AND name_key = ?2) END)
SELECT o.id, o.parent, o.name, 0 AS tag, p.name_key, p.name, p.type, p.value, 0 AS ord
  FROM o LEFT JOIN property p ON p.owner = o.id AND p.section_key = ''
UNION ALL
SELECT o.id, o.parent, o.name, 1, e.name_key, NULL, NULL, e.element, e.id
  FROM o JOIN list_element e ON e.owner = o.id AND e.section_key = ''
UNION ALL
SELECT o.id, o.parent, o.name, 2, NULL, NULL, NULL,
       printf('%d %d %d %d %d %d %d', t.c0, t.c1, t.c2, t.c3, t.c4, t.c5, t.c6), 0
  FROM o JOIN traffic t ON t.mailbox = o.id
ORDER BY 4, 9
)SQL");
    if (!s)
        return VB_ERROR_STORE_FAILURE;
    s.bind(1, int64_t(kind)).bind(2, fold(parentName)).bind(3, fold(name));
    int rc;
    bool found = false;
    snapshot.values.clear();
    uint32_t counters[7] = {};
    while ((rc = s.step()) == SQLITE_ROW) {
        if (!found) {
            found = true;
            snapshot.object = ObjectRef{s.int64(0), kind, s.int64(1), s.text(2)};
        }
        addSnapshotRow(s, snapshot, counters);
    }
    if (rc != SQLITE_DONE)
        return fail(rc);
    if (!found)
        return VB_ERROR_FILE_NOT_FOUND;
    if (kind == Kind::Mailbox) {
        for (int i = 0; i < 7; ++i) {
            Value& v = snapshot.values[fold(kTrafficCounterNames[i])];
            v.type = VB_TYPE_DWORD;
            v.number = counters[i];
        }
    }
    return 0;
}

uint32_t SqliteConnector::findObject(Kind kind, int64_t parent, std::string_view name, ObjectRef& object)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT id, name FROM object WHERE kind = ? AND parent = ? AND name_key = ?");
    s.bind(1, int64_t(kind)).bind(2, parent).bind(3, fold(name));
    return readObject(s, kind, parent, object);
}

uint32_t SqliteConnector::firstObject(Kind kind, int64_t parent, ObjectRef& object)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT id, name FROM object WHERE kind = ? AND parent = ? ORDER BY id LIMIT 1");
    s.bind(1, int64_t(kind)).bind(2, parent);
    return readObject(s, kind, parent, object);
}

uint32_t SqliteConnector::updateMailboxCount(int64_t domain, int64_t delta)
{
    // Kept by increments, inside the transaction that adds or removes the mailbox: counting the domain's
    // mailboxes on every change would make filling a large domain quadratic.
    {
        Stmt u = prepare("UPDATE property SET value = max(0, coalesce(value, 0) + ?2) "
                         "WHERE owner = ?1 AND section_key = '' AND name_key = 'mailboxcount' AND type = 4");
        u.bind(1, domain).bind(2, delta);
        if (uint32_t e = stepDone(u))
            return e;
        if (sqlite3_changes(m_db) > 0)
            return 0;
    }
    // No count yet (or not a number): count once.
    Stmt s = prepare("INSERT INTO property(owner, section_key, name_key, section, name, type, value) "
                     "VALUES (?1, '', 'mailboxcount', '', 'MailboxCount', 4, "
                     "(SELECT count(*) FROM object WHERE kind = 2 AND parent = ?1)) "
                     "ON CONFLICT(owner, section_key, name_key) DO UPDATE SET type = 4, value = excluded.value");
    s.bind(1, domain);
    return stepDone(s);
}

uint32_t SqliteConnector::createObject(Kind kind, int64_t parent, std::string_view name, ObjectRef& object)
{
    return transaction([&]() -> uint32_t {
        if (kind == Kind::Domain && synonymExists(name))
            return VB_ERROR_ALREADY_EXISTS; // a domain's name must not already be a synonym of another
        Stmt s = prepare("INSERT INTO object(kind, parent, name_key, name) VALUES (?, ?, ?, ?)");
        s.bind(1, int64_t(kind)).bind(2, parent).bind(3, fold(name)).bind(4, name);
        if (uint32_t e = stepDone(s))
            return e;
        object = ObjectRef{sqlite3_last_insert_rowid(m_db), kind, parent, std::string(name)};
        return kind == Kind::Mailbox ? updateMailboxCount(parent, 1) : 0;
    });
}

uint32_t SqliteConnector::destroyObject(const ObjectRef& object)
{
    if (object.id == 0)
        return m_readOnly ? VB_ERROR_ACCESS_DENIED : VB_ERROR_INVALID_PARAMETER;
    return transaction([&]() -> uint32_t {
        Stmt s = prepare("DELETE FROM object WHERE id = ?");
        s.bind(1, object.id);
        if (uint32_t e = stepChanged(s, VB_ERROR_FILE_NOT_FOUND))
            return e;
        return object.kind == Kind::Mailbox ? updateMailboxCount(object.parent, -1) : 0;
    });
}

uint32_t SqliteConnector::objectNames(Kind kind, int64_t parent, std::vector<std::string>& names)
{
    std::lock_guard lock(m_mutex);
    Stmt s = kind == Kind::Member
                 ? prepare("SELECT name FROM object WHERE kind = ? AND parent = ? ORDER BY id")
                 : prepare("SELECT name FROM object WHERE kind = ? AND parent = ? ORDER BY name_key");
    s.bind(1, int64_t(kind)).bind(2, parent);
    return readTexts(s, names);
}

uint32_t SqliteConnector::memberRoster(int64_t list, std::string_view property,
                                       std::vector<std::pair<std::string, std::string>>& rows)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT o.name, CASE WHEN p.type = 1 THEN p.value ELSE '' END FROM object o "
                     "LEFT JOIN property p ON p.owner = o.id AND p.section_key = '' AND p.name_key = ?2 "
                     "WHERE o.kind = 4 AND o.parent = ?1 ORDER BY o.id");
    if (!s)
        return VB_ERROR_STORE_FAILURE;
    s.bind(1, list).bind(2, fold(property));
    int rc;
    while ((rc = s.step()) == SQLITE_ROW)
        rows.emplace_back(s.text(0), s.type(1) == SQLITE_NULL ? std::string() : s.text(1));
    return rc == SQLITE_DONE ? 0 : fail(rc);
}

uint32_t SqliteConnector::removeMembers(int64_t list, const std::vector<std::string>& names, size_t& failedIndex)
{
    failedIndex = names.size();
    return transaction([&]() -> uint32_t {
        for (size_t i = 0; i < names.size(); ++i) {
            failedIndex = i;
            Stmt s = prepare("DELETE FROM object WHERE kind = 4 AND parent = ? AND name_key = ?");
            s.bind(1, list).bind(2, fold(names[i]));
            if (uint32_t e = stepChanged(s, VB_ERROR_FILE_NOT_FOUND))
                return e;
        }
        failedIndex = names.size();
        return 0;
    });
}

uint32_t SqliteConnector::addNumberedMembers(int64_t list, std::string_view property, std::string_view prefix,
                                             std::string_view domain, std::string_view label, uint32_t count)
{
    return transaction([&]() -> uint32_t {
        Stmt o = prepare("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?2) "
                         "INSERT INTO object(kind, parent, name_key, name) "
                         "SELECT 4, ?1, lower(?3 || i || '@' || ?4), ?3 || i || '@' || ?4 FROM n");
        o.bind(1, list).bind(2, int64_t(count)).bind(3, prefix).bind(4, domain);
        if (uint32_t e = stepDone(o))
            return e;
        Stmt p = prepare("INSERT INTO property(owner, section_key, name_key, section, name, type, value) "
                         "SELECT id, '', ?2, '', ?3, 1, ?4 || ' ' || (row_number() OVER (ORDER BY id)) "
                         "FROM object WHERE kind = 4 AND parent = ?1 AND id > ?5");
        p.bind(1, list).bind(2, fold(property)).bind(3, property).bind(4, label)
            .bind(5, sqlite3_last_insert_rowid(m_db) - int64_t(count));
        return stepDone(p);
    });
}

uint32_t SqliteConnector::addMembers(int64_t list, std::string_view property,
                                     const std::vector<std::pair<std::string, std::string>>& rows,
                                     const std::function<bool(size_t)>& keepGoing, size_t& failedIndex)
{
    failedIndex = rows.size();
    const std::string nk = fold(property);
    return transaction([&]() -> uint32_t {
        for (size_t i = 0; i < rows.size(); ++i) {
            if (keepGoing && i % 1000 == 0 && !keepGoing(i))
                return VB_ERROR_CANCELLED;
            failedIndex = i;
            Stmt o = prepare("INSERT INTO object(kind, parent, name_key, name) VALUES (4, ?, ?, ?)");
            o.bind(1, list).bind(2, fold(rows[i].first)).bind(3, rows[i].first);
            if (uint32_t e = stepDone(o))
                return e;
            if (rows[i].second.empty())
                continue;
            Stmt p = prepare("INSERT INTO property(owner, section_key, name_key, section, name, type, value) "
                             "VALUES (?, '', ?, '', ?, 1, ?)");
            p.bind(1, sqlite3_last_insert_rowid(m_db)).bind(2, nk).bind(3, property).bind(4, rows[i].second);
            if (uint32_t e = stepDone(p))
                return e;
        }
        failedIndex = rows.size();
        return 0;
    });
}

uint32_t SqliteConnector::countObjects(Kind kind, int64_t parent, uint64_t& count)
{
    std::lock_guard lock(m_mutex);
    Stmt s = parent < 0 ? prepare("SELECT count(*) FROM object WHERE kind = ?1 AND ?2 < 0")
                        : prepare("SELECT count(*) FROM object WHERE kind = ?1 AND parent = ?2");
    s.bind(1, int64_t(kind)).bind(2, parent);
    return readCount(s, count);
}

uint32_t SqliteConnector::countMailboxesWith(int64_t domain, std::string_view property, uint64_t& count)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT count(*) FROM object o JOIN property p ON p.owner = o.id AND p.section_key = '' "
                     "AND p.name_key = ?1 WHERE o.kind = 2 AND (?2 < 0 OR o.parent = ?2) AND p.type = 4 "
                     "AND p.value <> 0");
    s.bind(1, fold(property)).bind(2, domain);
    return readCount(s, count);
}

uint32_t SqliteConnector::findDomainByProperty(std::string_view property, std::string_view text,
                                               ObjectRef& domain)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT o.id, o.name FROM object o JOIN property p ON p.owner = o.id AND p.section_key = '' "
                     "AND p.name_key = ? WHERE o.kind = 1 AND o.parent = 0 AND p.type = 1 "
                     "AND p.value = ? COLLATE NOCASE ORDER BY o.name_key LIMIT 1");
    s.bind(1, fold(property)).bind(2, text);
    return readObject(s, Kind::Domain, 0, domain);
}

uint32_t SqliteConnector::getPassword(const ObjectRef& mailbox, std::string& sealed)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT password FROM object WHERE id = ?");
    s.bind(1, mailbox.id);
    const int rc = s.step();
    if (rc == SQLITE_DONE)
        return VB_ERROR_FILE_NOT_FOUND;
    if (rc != SQLITE_ROW)
        return fail(rc);
    if (s.type(0) == SQLITE_NULL)
        return VB_ERROR_FILE_NOT_FOUND;
    sealed = s.text(0);
    return 0;
}

uint32_t SqliteConnector::setPassword(const ObjectRef& mailbox, std::string_view sealed)
{
    return writing([&] {
        Stmt s = prepare("UPDATE object SET password = ? WHERE id = ?");
        s.bindBlob(1, sealed).bind(2, mailbox.id);
        return stepChanged(s, VB_ERROR_FILE_NOT_FOUND);
    });
}

// ---- synonyms and aliases ---------------------------------------------------------------------

bool SqliteConnector::synonymExists(std::string_view name)
{
    Stmt q = prepare("SELECT 1 FROM synonym WHERE name_key = ?");
    q.bind(1, fold(name));
    return q.step() == SQLITE_ROW;
}

uint32_t SqliteConnector::synonymNames(int64_t domain, std::vector<std::string>& names)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT name FROM synonym WHERE domain = ? ORDER BY name_key");
    s.bind(1, domain);
    return readTexts(s, names);
}

uint32_t SqliteConnector::findSynonym(std::string_view synonym, ObjectRef& domain)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT o.id, o.name FROM synonym y JOIN object o ON o.id = y.domain WHERE y.name_key = ?");
    s.bind(1, fold(synonym));
    return readObject(s, Kind::Domain, 0, domain);
}

uint32_t SqliteConnector::createSynonym(int64_t domain, std::string_view synonym)
{
    return transaction([&]() -> uint32_t {
        Stmt q = prepare("SELECT 1 FROM object WHERE kind = 1 AND parent = 0 AND name_key = ?");
        q.bind(1, fold(synonym));
        if (q.step() == SQLITE_ROW)
            return VB_ERROR_ALREADY_EXISTS;
        Stmt s = prepare("INSERT INTO synonym(name_key, name, domain) VALUES (?, ?, ?)");
        s.bind(1, fold(synonym)).bind(2, synonym).bind(3, domain);
        return stepDone(s);
    });
}

uint32_t SqliteConnector::destroySynonym(std::string_view synonym)
{
    return writing([&] {
        Stmt s = prepare("DELETE FROM synonym WHERE name_key = ?");
        s.bind(1, fold(synonym));
        return stepChanged(s, VB_ERROR_FILE_NOT_FOUND);
    });
}

uint32_t SqliteConnector::convertSynonym(std::string_view synonym)
{
    return transaction([&]() -> uint32_t {
        std::vector<std::string> name;
        Stmt q = prepare("SELECT name FROM synonym WHERE name_key = ?");
        q.bind(1, fold(synonym));
        if (uint32_t e = readTexts(q, name))
            return e;
        if (name.empty())
            return VB_ERROR_FILE_NOT_FOUND;
        if (uint32_t e = destroySynonym(synonym))
            return e;
        ObjectRef created;
        return createObject(Kind::Domain, 0, name.front(), created);
    });
}

uint32_t SqliteConnector::aliasNamesOfDomain(int64_t domain, std::vector<std::string>& names)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT name FROM mailbox_alias WHERE domain = ? ORDER BY name_key");
    s.bind(1, domain);
    return readTexts(s, names);
}

uint32_t SqliteConnector::aliasNamesOfMailbox(int64_t mailbox, std::vector<std::string>& names)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT name FROM mailbox_alias WHERE mailbox = ? ORDER BY name_key");
    s.bind(1, mailbox);
    return readTexts(s, names);
}

uint32_t SqliteConnector::createAlias(const ObjectRef& mailbox, std::string_view alias)
{
    return transaction([&]() -> uint32_t {
        // An alias must not hide a mailbox of the same name.
        Stmt q = prepare("SELECT 1 FROM object WHERE kind = 2 AND parent = ? AND name_key = ?");
        q.bind(1, mailbox.parent).bind(2, fold(alias));
        if (q.step() == SQLITE_ROW)
            return VB_ERROR_ALREADY_EXISTS;
        Stmt s = prepare("INSERT INTO mailbox_alias(domain, name_key, name, mailbox) VALUES (?, ?, ?, ?)");
        s.bind(1, mailbox.parent).bind(2, fold(alias)).bind(3, alias).bind(4, mailbox.id);
        return stepDone(s);
    });
}

uint32_t SqliteConnector::destroyAlias(const ObjectRef& mailbox, std::string_view alias)
{
    return writing([&] {
        Stmt s = prepare("DELETE FROM mailbox_alias WHERE domain = ? AND name_key = ? AND mailbox = ?");
        s.bind(1, mailbox.parent).bind(2, fold(alias)).bind(3, mailbox.id);
        return stepChanged(s, VB_ERROR_FILE_NOT_FOUND);
    });
}

uint32_t SqliteConnector::aliasOwner(int64_t domain, std::string_view alias, ObjectRef& mailbox)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT o.id, o.name FROM mailbox_alias a JOIN object o ON o.id = a.mailbox "
                     "WHERE a.domain = ? AND a.name_key = ?");
    s.bind(1, domain).bind(2, fold(alias));
    return readObject(s, Kind::Mailbox, domain, mailbox);
}

// ---- services ---------------------------------------------------------------------------------

static void readService(Stmt& s, ServiceRecord& r)
{
    r.name = s.text(0);
    r.controller = s.text(1);
    r.unit = s.text(2);
    r.state = uint32_t(s.int64(3));
    r.pendingState = uint32_t(s.int64(4));
    r.finalState = uint32_t(s.int64(5));
    r.pendingUntilMs = s.int64(6);
}

uint32_t SqliteConnector::services(std::vector<ServiceRecord>& services)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT name, controller, unit, state, pending_state, final_state, pending_until "
                     "FROM service ORDER BY ordinal, name_key");
    int rc;
    while ((rc = s.step()) == SQLITE_ROW) {
        ServiceRecord r;
        readService(s, r);
        services.push_back(std::move(r));
    }
    return rc == SQLITE_DONE ? 0 : fail(rc);
}

uint32_t SqliteConnector::getService(std::string_view name, ServiceRecord& service)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT name, controller, unit, state, pending_state, final_state, pending_until "
                     "FROM service WHERE name_key = ?");
    s.bind(1, fold(name));
    const int rc = s.step();
    if (rc == SQLITE_DONE)
        return VB_ERROR_SERVICE_DOES_NOT_EXIST;
    if (rc != SQLITE_ROW)
        return fail(rc);
    readService(s, service);
    return 0;
}

uint32_t SqliteConnector::putService(const ServiceRecord& r)
{
    return writing([&] {
        Stmt s = prepare("INSERT INTO service(name_key, name, ordinal, controller, unit, state, pending_state, "
                         "final_state, pending_until) VALUES (?1, ?2, (SELECT coalesce(max(ordinal), 0) + 1 FROM "
                         "service), ?3, ?4, ?5, ?6, ?7, ?8) ON CONFLICT(name_key) DO UPDATE SET controller = ?3, "
                         "unit = ?4, state = ?5, pending_state = ?6, final_state = ?7, pending_until = ?8");
        s.bind(1, fold(r.name)).bind(2, r.name).bind(3, r.controller).bind(4, r.unit).bind(5, r.state);
        s.bind(6, r.pendingState).bind(7, r.finalState).bind(8, r.pendingUntilMs);
        return stepDone(s);
    });
}

uint32_t SqliteConnector::removeService(std::string_view name)
{
    return writing([&] {
        Stmt s = prepare("DELETE FROM service WHERE name_key = ?");
        s.bind(1, fold(name));
        return stepChanged(s, VB_ERROR_SERVICE_DOES_NOT_EXIST);
    });
}

// ---- routes and the alias mapping -------------------------------------------------------------

uint32_t SqliteConnector::loadRoutes(std::vector<Route>& routes)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT r.seq, r.domain_mask, r.rule, h.host, h.port, h.preference FROM route r "
                     "LEFT JOIN route_host h ON h.route = r.seq ORDER BY r.seq, h.seq");
    int rc;
    int64_t last = -1;
    while ((rc = s.step()) == SQLITE_ROW) {
        if (routes.empty() || s.int64(0) != last) {
            last = s.int64(0);
            routes.push_back(Route{s.text(1), uint32_t(s.int64(2)), {}});
        }
        if (s.type(3) != SQLITE_NULL)
            routes.back().hosts.push_back(RouteHost{s.text(3), uint32_t(s.int64(4)), uint32_t(s.int64(5))});
    }
    return rc == SQLITE_DONE ? 0 : fail(rc);
}

uint32_t SqliteConnector::saveRoutes(const std::vector<Route>& routes)
{
    return transaction([&]() -> uint32_t {
        if (uint32_t e = exec("DELETE FROM route_host; DELETE FROM route;"))
            return e;
        int64_t seq = 0;
        for (const Route& r : routes) {
            Stmt s = prepare("INSERT INTO route(seq, domain_mask, rule) VALUES (?, ?, ?)");
            s.bind(1, ++seq).bind(2, r.domainMask).bind(3, r.rule);
            if (uint32_t e = stepDone(s))
                return e;
            int64_t hseq = 0;
            const uint32_t e =
                insertEach("INSERT INTO route_host(route, seq, host, port, preference) VALUES (?, ?, ?, ?, ?)",
                           r.hosts, [&](Stmt& hs, const RouteHost& h) {
                               hs.bind(1, seq).bind(2, ++hseq).bind(3, h.host).bind(4, h.port).bind(5, h.preference);
                           });
            if (e)
                return e;
        }
        return 0;
    });
}

uint32_t SqliteConnector::loadAliasMapping(std::vector<AliasEntry>& entries)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT alias, target FROM alias_mapping ORDER BY seq");
    int rc;
    while ((rc = s.step()) == SQLITE_ROW)
        entries.push_back(AliasEntry{s.text(0), s.text(1)});
    return rc == SQLITE_DONE ? 0 : fail(rc);
}

uint32_t SqliteConnector::saveAliasMapping(const std::vector<AliasEntry>& entries)
{
    return transaction([&]() -> uint32_t {
        if (uint32_t e = exec("DELETE FROM alias_mapping"))
            return e;
        int64_t seq = 0;
        return insertEach("INSERT INTO alias_mapping(seq, alias, target) VALUES (?, ?, ?)", entries,
                          [&](Stmt& s, const AliasEntry& a) { s.bind(1, ++seq).bind(2, a.alias).bind(3, a.target); });
    });
}

// ---- retries ----------------------------------------------------------------------------------

uint32_t SqliteConnector::addRetries(const std::vector<std::string>& names)
{
    const int64_t now = nowMs() / 1000;
    return transaction([&] {
        return insertEach("INSERT INTO retry_request(name, requested) VALUES (?, ?)", names,
                          [&](Stmt& s, const std::string& n) { s.bind(1, n).bind(2, now); });
    });
}

uint32_t SqliteConnector::pendingRetries(std::vector<std::string>& names)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT name FROM retry_request ORDER BY id");
    return readTexts(s, names);
}

// ---- traffic report ---------------------------------------------------------------------------

namespace {

// Installed on the connection while the report's one long statement runs: a "no" from the caller
// interrupts it, and the handler is removed however the statement ends.
class ProgressScope {
public:
    ProgressScope(sqlite3* db, const std::function<bool()>& keepGoing) : m_db(db), m_keepGoing(keepGoing)
    {
        if (m_keepGoing)
            sqlite3_progress_handler(m_db, kSteps, &ProgressScope::call, this);
    }
    ~ProgressScope()
    {
        if (m_keepGoing)
            sqlite3_progress_handler(m_db, 0, nullptr, nullptr);
    }
    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;
    bool cancelled() const { return m_cancelled; }

    // Virtual-machine steps between calls: a few hundred calls over a million mailboxes.
    static constexpr int kSteps = 16384;

private:
    static int call(void* self)
    {
        auto* scope = static_cast<ProgressScope*>(self);
        if (!scope->m_cancelled && !scope->m_keepGoing())
            scope->m_cancelled = true;
        return scope->m_cancelled ? 1 : 0;
    }

    sqlite3* m_db;
    const std::function<bool()>& m_keepGoing;
    bool m_cancelled = false;
};

} // namespace

uint32_t SqliteConnector::trafficSelect(uint64_t id, const TrafficQuery& q, uint64_t& rows,
                                        const std::function<bool()>& keepGoing)
{
    std::lock_guard lock(m_mutex);
    trafficDrop(id);
    bool any = false;
    for (uint32_t t : q.thresholds)
        any = any || t != 0;
    // The report table is temporary: it lives beside the connection even on a read-only store.
    Stmt s = any ? prepare("INSERT INTO temp.traffic_report(report, mailbox) SELECT ?1, mailbox FROM traffic "
                           "WHERE (?2 < 0 OR domain = ?2) AND ((?3 > 0 AND c0 > ?3) OR (?4 > 0 AND c1 > ?4) "
                           "OR (?5 > 0 AND c2 > ?5) OR (?6 > 0 AND c3 > ?6) OR (?7 > 0 AND c4 > ?7) "
                           "OR (?8 > 0 AND c5 > ?8) OR (?9 > 0 AND c6 > ?9))")
                 : prepare("INSERT INTO temp.traffic_report(report, mailbox) SELECT ?1, id FROM object "
                           "WHERE kind = 2 AND (?2 < 0 OR parent = ?2)");
    if (!s)
        return VB_ERROR_STORE_FAILURE;
    s.bind(1, int64_t(id)).bind(2, q.domain);
    if (any)
        for (int i = 0; i < 7; ++i)
            s.bind(3 + i, int64_t(q.thresholds[i]));
    int rc;
    bool cancelled;
    {
        ProgressScope progress(m_db, keepGoing);
        rc = s.step();
        cancelled = progress.cancelled();
    }
    if (rc != SQLITE_DONE) {
        s.reset();
        trafficDrop(id); // an interrupted statement keeps nothing; make sure of it
        return cancelled ? VB_ERROR_CANCELLED : fail(rc);
    }
    rows = uint64_t(sqlite3_changes64(m_db));
    return 0;
}

uint32_t SqliteConnector::trafficRows(uint64_t id, const std::function<bool(const TrafficRow&)>& row)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT m.name, d.name, t.c0, t.c1, t.c2, t.c3, t.c4, t.c5, t.c6 "
                     "FROM temp.traffic_report r JOIN object m ON m.id = r.mailbox "
                     "JOIN object d ON d.id = m.parent LEFT JOIN traffic t ON t.mailbox = r.mailbox "
                     "WHERE r.report = ? ORDER BY r.mailbox");
    s.bind(1, int64_t(id));
    int rc;
    TrafficRow r;
    while ((rc = s.step()) == SQLITE_ROW) {
        r.mailbox = s.text(0);
        r.domain = s.text(1);
        for (int i = 0; i < 7; ++i)
            r.counters[i] = uint32_t(s.int64(2 + i));
        if (!row(r))
            return VB_ERROR_CANCELLED;
    }
    return rc == SQLITE_DONE ? 0 : fail(rc);
}

void SqliteConnector::trafficDrop(uint64_t id)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("DELETE FROM temp.traffic_report WHERE report = ?");
    s.bind(1, int64_t(id));
    s.step();
}

uint32_t SqliteConnector::setTraffic(const ObjectRef& mailbox, const uint32_t c[7])
{
    return writing([&] {
        Stmt s = prepare("INSERT OR REPLACE INTO traffic(mailbox, domain, c0, c1, c2, c3, c4, c5, c6) "
                         "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
        s.bind(1, mailbox.id).bind(2, mailbox.parent);
        for (int i = 0; i < 7; ++i)
            s.bind(3 + i, int64_t(c[i]));
        return stepDone(s);
    });
}

} // namespace vb
