#include "web/Site.h"

#include <filesystem>

#include "web/Frame.h"
#include "web/pages/Pages.h"
#include "workbench/data/Resources.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/history/History.h"
#include "workbench/plans/SavedPlan.h"

namespace cordboard::web {

namespace {

struct Route {
  const char* method;
  const char* path;
  Answer (*page)(const Visit& visit, const Request& request);
};

constexpr Route routes[] = {
    {"GET", "/", Commands},       {"GET", "/form", OpenForm},        {"POST", "/form", CheckForm},
    {"POST", "/values", Values},  {"POST", "/try", TryAction},       {"POST", "/act", DoAction},
    {"GET", "/kept", Kept},       {"GET", "/delete", ConfirmDelete}, {"POST", "/delete", Delete},
    {"GET", "/records", Records}, {"GET", "/history", History},      {"GET", "/state", OneState},
    {"GET", "/undo", AskUndo},    {"POST", "/undo", DoUndo},         {"GET", "/redo", AskRedo},
    {"POST", "/redo", DoRedo},    {"GET", "/lines", Lines},          {"GET", "/lines.txt", LinesAsText},
    {"GET", "/compare", Compare}, {"GET", "/between", PlanBetween},  {"GET", "/between.txt", PlanBetweenAsText},
    {"GET", "/plan", Plan},       {"GET", "/plan.txt", PlanAsText},  {"GET", "/used", Used},
    {"GET", "/help", Help},
};

struct Asset {
  const char* path;
  const char* type;
};
constexpr Asset assets[] = {
    {"/icon.svg", "image/svg+xml"},
    {"/style.css", "text/css; charset=utf-8"},
    {"/page.js", "text/javascript; charset=utf-8"},
};

Answer Find(const Visit& visit, const Request& request) {
  for (const Asset& asset : assets)
    if (request.method == "GET" && request.path == asset.path)
      return {.body = std::string(workbench::Resource(request.path.substr(1))), .type = asset.type};
  bool isKnown = false;
  for (const Route& route : routes) {
    if (request.path != route.path) continue;
    if (request.method == route.method) return route.page(visit, request);
    isKnown = true;
  }
  if (isKnown) throw Failed(NoSuchMethod, "This page is not asked for in this way.");
  throw Failed(NotFound, "There is no such page.");
}

}  // namespace

Site::Site(Visit visit, Gate gate) : visit_(std::move(visit)), gate_(std::move(gate)) {
  visit_.SetProof(gate_.proof());
}

Answer Site::Serve(const Request& request) const {
  const auto tell = [this](const std::string& why, Status status) {
    return Page(visit_, status == Fault ? "A fault" : "That does not go", Notice("error", why), status);
  };
  try {
    if (auto answer = gate_.Stop(request)) return *answer;
    return Find(visit_, request);
  } catch (const Failed& failed) {
    return tell(failed.what(), failed.status());
  } catch (const workbench::NoSuchState& error) {
    return tell(error.what(), NotFound);
  } catch (const workbench::HistoryError& error) {
    return tell(error.what(), Conflict);
  } catch (const workbench::StalePlan& error) {
    return tell(error.what(), Conflict);
  } catch (const workbench::ExchangeError& error) {
    return tell(error.what(), Busy);
  } catch (const workbench::StorageError& error) {
    return tell(std::string(error.what()) + "; nothing was kept", Busy);
  } catch (const workbench::DatabaseError& error) {
    return tell(std::string("the database refuses: ") + error.what(), Busy);
  } catch (const std::filesystem::filesystem_error& error) {
    return tell(error.code().message() + ": " + error.path1().string(), Busy);
  } catch (const std::exception& error) {
    return tell(std::string("this is a fault of the program: ") + error.what(), Fault);
  }
}

}  // namespace cordboard::web
