// The pages of the site: one file each, named after the page. Each opens the exchange as it now is and answers one
// request; what cannot be answered ends with Failed.
#pragma once

#include "web/Request.h"
#include "web/Visit.h"

namespace cordboard::web {

// GET /: the commands by family, with how many records each has.
Answer Commands(const Visit& visit, const Request& request);
// GET /records?command=: the records of a command, searched (find=), sorted (sort=, down=1) and by the hundred (page=).
Answer Records(const Visit& visit, const Request& request);
// GET /history: the states. GET /state?number=: what one of them changed, and its plans.
Answer History(const Visit& visit, const Request& request);
Answer OneState(const Visit& visit, const Request& request);
// GET /undo?number=, GET /redo: what that would do. POST does it, as long as no state has come since (newest=).
Answer AskUndo(const Visit& visit, const Request& request);
Answer DoUndo(const Visit& visit, const Request& request);
Answer AskRedo(const Visit& visit, const Request& request);
Answer DoRedo(const Visit& visit, const Request& request);
// GET /lines: the lines of the exchange (command=, find=), or which came and went since a state (since=).
// GET /lines.txt: all of them as a file; a page that says why, where some are missing.
Answer Lines(const Visit& visit, const Request& request);
Answer LinesAsText(const Visit& visit, const Request& request);
// GET /compare: in what two exchanges differ: states of this one ("@3", or nothing for now), and other exchanges of its
// folder (first=, second=). GET /between: the plan that turns the one into the other; GET /between.txt as a file.
Answer Compare(const Visit& visit, const Request& request);
Answer PlanBetween(const Visit& visit, const Request& request);
Answer PlanBetweenAsText(const Visit& visit, const Request& request);
// GET /plan: what this visit has changed, as a plan; GET /plan.txt as a file that `apply` reads.
Answer Plan(const Visit& visit, const Request& request);
Answer PlanAsText(const Visit& visit, const Request& request);
// GET /used?value=&thing=: who refers to a number, a position or another thing.
Answer Used(const Visit& visit, const Request& request);
// GET /help?command=&parameter=: what a command, or one of its parameters, is.
Answer Help(const Visit& visit, const Request& request);

// GET /form: the form of a command, to add a record or to change the one that is selected.
Answer OpenForm(const Visit& visit, const Request& request);
// POST /form: the same as it is filled in, checked. Its script gets the form alone.
Answer CheckForm(const Visit& visit, const Request& request);
// POST /values: the values that are valid for "parameter" as the form is filled in, of which "q" is a part.
Answer Values(const Visit& visit, const Request& request);
// POST /try and /act: what the action of a form will do, and doing it. Both lead to a page of what came of it.
Answer TryAction(const Visit& visit, const Request& request);
Answer DoAction(const Visit& visit, const Request& request);
// GET /kept: such a page.
Answer Kept(const Visit& visit, const Request& request);
// GET and POST /delete: what a deletion will do, and doing it.
Answer ConfirmDelete(const Visit& visit, const Request& request);
Answer Delete(const Visit& visit, const Request& request);

}  // namespace cordboard::web
