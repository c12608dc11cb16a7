"""The script that has a disk image notarised, over a stand-in for xcrun."""

from case import PACKAGING, PackagingTestCase

PROFILE = "my  profile"
ID = "0e5a3b1c-2b44-4c1f-9f0d-8c7f5d1e2a3b"


def verdict(status):
    """The answer of the notary service."""
    return f'{{"id":"{ID}","status":"{status}","message":"Processing complete"}}\n'


class NotarizeTest(PackagingTestCase):
    """Every way that the notary service may answer."""

    def setUp(self):
        super().setUp()
        self.image = self.write(self.folder / "set up.dmg", b"koly")
        self.submit = ["xcrun", "notarytool", "submit", str(self.image),
                       "--keychain-profile", PROFILE, "--wait", "--output-format", "json"]
        self.log = ["xcrun", "notarytool", "log", ID, "--keychain-profile", PROFILE]
        self.staple = ["xcrun", "stapler", "staple", str(self.image)]
        self.validate = ["xcrun", "stapler", "validate", str(self.image)]

    def notarize(self):
        return self.run_tool(PACKAGING / "notarize", self.image, PROFILE)

    def test_accepted_image_gets_its_ticket(self):
        self.tools.answer("submit", 0, verdict("Accepted"))
        result = self.notarize()
        self.assert_works(result)
        self.assertIn(verdict("Accepted"), result.stdout)
        self.assertEqual(self.tools.calls(), [self.submit, self.staple, self.validate])

    def test_answer_may_spread_over_lines(self):
        self.tools.answer("submit", 0, f'{{\n  "status" : "Accepted",\n  "id" : "{ID}"\n}}\n')
        self.assert_works(self.notarize())
        self.assertEqual(self.tools.calls(), [self.submit, self.staple, self.validate])

    def test_refused_image_gets_the_reason_instead(self):
        self.tools.answer("log", 0, "The signature lacks a timestamp.\n")
        for status in ("Invalid", "Rejected", "In Progress"):
            with self.subTest(status=status):
                self.tools.answer("submit", 0, verdict(status))
                result = self.notarize()
                self.assertEqual(result.returncode, 1)
                self.assertIn(f"did not accept {self.image}", result.stderr)
                self.assertIn("The signature lacks a timestamp.", result.stderr)
                self.assertEqual(self.tools.calls(), [self.submit, self.log])

    def test_refusal_stands_where_the_reason_cannot_be_had(self):
        self.tools.answer("submit", 0, verdict("Invalid"))
        self.tools.answer("log", 69)
        self.assertEqual(self.notarize().returncode, 1)

    def test_answer_that_says_nothing_is_a_refusal(self):
        for answer in ("", "Accepted\n", '{"message":"status: Accepted"}\n'):
            with self.subTest(answer=answer):
                self.tools.answer("submit", 0, answer)
                self.assertEqual(self.notarize().returncode, 1)
                self.assertEqual(self.tools.calls(), [self.submit])

    def test_failed_submission_stops_it(self):
        self.tools.answer("submit", 69, "No keychain password item found\n")
        result = self.notarize()
        self.assertEqual(result.returncode, 69)
        self.assertIn("No keychain password item found", result.stdout)
        self.assertIn(f"{self.image} could not be submitted", result.stderr)
        self.assertEqual(self.tools.calls(), [self.submit])

    def test_failure_of_the_stapler_stops_it(self):
        for step, calls in (("staple", [self.submit, self.staple]),
                            ("validate", [self.submit, self.staple, self.validate])):
            with self.subTest(step=step):
                self.tools.answers = {}
                self.tools.answer("submit", 0, verdict("Accepted"))
                self.tools.answer(step, 65)
                self.assertEqual(self.notarize().returncode, 65)
                self.assertEqual(self.tools.calls(), calls)

    def test_refuses_what_is_not_there(self):
        self.image.unlink()
        result = self.notarize()
        self.assertEqual(result.returncode, 1)
        self.assertIn(f"there is no disk image {self.image}", result.stderr)
        self.assertEqual(self.tools.calls(), [])

    def test_tells_how_it_is_used(self):
        for arguments in ([], [self.image], [self.image, ""], [self.image, PROFILE, "more"]):
            result = self.run_tool(PACKAGING / "notarize", *arguments)
            self.assertEqual(result.returncode, 2)
            self.assertIn("Usage: ", result.stderr)
            self.assertEqual(self.tools.calls(), [])
