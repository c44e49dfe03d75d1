// The server's client library, loaded with its twenty dependencies when a server is first spoken to: linked,
// it would cost every start a third more, also where the book is a file. These are its own functions, passed
// on.
#include "platform/db/PostgresLibrary.h"

#include <QLibrary>
#include <libpq-fe.h>

namespace {

QLibrary &libPq() {
    constexpr int version = 5;
    static QLibrary library(QStringLiteral("pq"), version);
    return library;
}

/// The library's function of the name of `Own`. Not before postgresLibraryLoads() has said yes.
template <auto Own, typename... Arguments>
auto passOn(const char *name, Arguments... arguments) {
    static auto *const function = reinterpret_cast<decltype(Own)>(libPq().resolve(name));
    return function(arguments...);
}

} // namespace

bool postgresLibraryLoads() {
    static const bool loads = libPq().load();
    return loads;
}

void PQclear(PGresult *res) {
    passOn<PQclear>("PQclear", res);
}

char *PQcmdTuples(PGresult *res) {
    return passOn<PQcmdTuples>("PQcmdTuples", res);
}

PostgresPollingStatusType PQconnectPoll(PGconn *conn) {
    return passOn<PQconnectPoll>("PQconnectPoll", conn);
}

PGconn *PQconnectStartParams(const char *const *keywords, const char *const *values, int expand_dbname) {
    return passOn<PQconnectStartParams>("PQconnectStartParams", keywords, values, expand_dbname);
}

int PQconsumeInput(PGconn *conn) {
    return passOn<PQconsumeInput>("PQconsumeInput", conn);
}

char *PQerrorMessage(const PGconn *conn) {
    return passOn<PQerrorMessage>("PQerrorMessage", conn);
}

void PQfinish(PGconn *conn) {
    passOn<PQfinish>("PQfinish", conn);
}

int PQflush(PGconn *conn) {
    return passOn<PQflush>("PQflush", conn);
}

char *PQfname(const PGresult *res, int field_num) {
    return passOn<PQfname>("PQfname", res, field_num);
}

Oid PQftype(const PGresult *res, int field_num) {
    return passOn<PQftype>("PQftype", res, field_num);
}

int PQgetCopyData(PGconn *conn, char **buffer, int async) {
    return passOn<PQgetCopyData>("PQgetCopyData", conn, buffer, async);
}

PGresult *PQgetResult(PGconn *conn) {
    return passOn<PQgetResult>("PQgetResult", conn);
}

int PQgetisnull(const PGresult *res, int tup_num, int field_num) {
    return passOn<PQgetisnull>("PQgetisnull", res, tup_num, field_num);
}

int PQgetlength(const PGresult *res, int tup_num, int field_num) {
    return passOn<PQgetlength>("PQgetlength", res, tup_num, field_num);
}

char *PQgetvalue(const PGresult *res, int tup_num, int field_num) {
    return passOn<PQgetvalue>("PQgetvalue", res, tup_num, field_num);
}

int PQisBusy(PGconn *conn) {
    return passOn<PQisBusy>("PQisBusy", conn);
}

int PQnfields(const PGresult *res) {
    return passOn<PQnfields>("PQnfields", res);
}

int PQntuples(const PGresult *res) {
    return passOn<PQntuples>("PQntuples", res);
}

char *PQresultErrorField(const PGresult *res, int fieldcode) {
    return passOn<PQresultErrorField>("PQresultErrorField", res, fieldcode);
}

char *PQresultErrorMessage(const PGresult *res) {
    return passOn<PQresultErrorMessage>("PQresultErrorMessage", res);
}

int PQputCopyData(PGconn *conn, const char *buffer, int nbytes) {
    return passOn<PQputCopyData>("PQputCopyData", conn, buffer, nbytes);
}

int PQputCopyEnd(PGconn *conn, const char *errormsg) {
    return passOn<PQputCopyEnd>("PQputCopyEnd", conn, errormsg);
}

ExecStatusType PQresultStatus(const PGresult *res) {
    return passOn<PQresultStatus>("PQresultStatus", res);
}

int PQsendQuery(PGconn *conn, const char *query) {
    return passOn<PQsendQuery>("PQsendQuery", conn, query);
}

PGVerbosity PQsetErrorVerbosity(PGconn *conn, PGVerbosity verbosity) {
    return passOn<PQsetErrorVerbosity>("PQsetErrorVerbosity", conn, verbosity);
}

int PQsetnonblocking(PGconn *conn, int arg) {
    return passOn<PQsetnonblocking>("PQsetnonblocking", conn, arg);
}

int PQsocket(const PGconn *conn) {
    return passOn<PQsocket>("PQsocket", conn);
}

ConnStatusType PQstatus(const PGconn *conn) {
    return passOn<PQstatus>("PQstatus", conn);
}

void PQfreemem(void *ptr) {
    passOn<PQfreemem>("PQfreemem", ptr);
}

PGnotify *PQnotifies(PGconn *conn) {
    return passOn<PQnotifies>("PQnotifies", conn);
}

PQnoticeReceiver PQsetNoticeReceiver(PGconn *conn, PQnoticeReceiver proc, void *arg) {
    return passOn<PQsetNoticeReceiver>("PQsetNoticeReceiver", conn, proc, arg);
}
