#include "cli/Failures.h"

#include <exception>
#include <filesystem>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "workbench/database/Connection.h"
#include "workbench/exchange/Exchange.h"
#include "workbench/exchange/Plant.h"
#include "workbench/history/History.h"
#include "workbench/plans/Plan.h"
#include "workbench/plans/SavedPlan.h"
#include "workbench/system/SystemMessage.h"

namespace cordboard::cli {

int TellFailure(const std::function<int()>& work) {
  try {
    return work();
  } catch (const Exit& exit) {
    Error(exit.message);
    return exit.code;
  } catch (const workbench::NoSuchState& error) {
    Error(error.what());
    return NotFound;
  } catch (const workbench::HistoryError& error) {
    Error(error.what());
    return Refused;
  } catch (const workbench::StalePlan& error) {
    Error(error.what());
    return Refused;
  } catch (const workbench::ExchangeError& error) {
    Error(error.what());
  } catch (const workbench::PlantError& error) {
    Report(error);
  } catch (const workbench::PlanError& error) {
    Error(error.what());
  } catch (const workbench::StorageError& error) {
    Error(error.what());
  } catch (const workbench::DatabaseError& error) {
    Error(std::string("the database refuses: ") + error.what());
  } catch (const std::filesystem::filesystem_error& error) {
    Error(error.path1().string() + ": " + workbench::SystemMessage(error.code().value()));
  } catch (const std::exception& error) {
    Error(std::string("this is a fault of the program: ") + error.what());
    return Internal;
  }
  return Trouble;
}

}  // namespace cordboard::cli
