import { Button } from "./Button";
import { Dialog } from "./Dialog";
import { questions } from "./questions";

/** Shows the questions of `confirm` and `choose`, one after the other. */
export function QuestionHost() {
  const question = questions.value[0];
  if (question === undefined) {
    return null;
  }
  return (
    <Dialog
      key={question.number}
      title={question.title}
      onClose={() => question.answer(undefined)}
      actions={question.choices.map((choice) => (
        <Button
          key={choice.label}
          kind={choice.kind ?? "plain"}
          onClick={() => question.answer(choice.value)}
        >
          {choice.label}
        </Button>
      ))}
    >
      {question.body}
    </Dialog>
  );
}
