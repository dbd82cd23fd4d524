import type { ComponentType } from "preact";
import { AboutPage } from "../about/AboutPage";
import { ConfigurationPage } from "../configuration/ConfigurationPage";
import type { Role } from "../data/roles";
import { DrivePage } from "../drive/DrivePage";
import { IoPage } from "../io/IoPage";
import type { IconName } from "../kit/Icon";
import { NetworkPage } from "../network/NetworkPage";
import { OverviewPage } from "../overview/OverviewPage";
import { ProgramsPage } from "../programs/ProgramsPage";
import { ServicesPage } from "../services/ServicesPage";

export interface Page {
  readonly path: string;
  readonly title: string;
  readonly icon: IconName;
  /** The least role that can use the page. */
  readonly needs: Role;
  readonly component: ComponentType;
}

/** In the order of the navigation; the first four are always in sight on a phone. */
export const pages: readonly Page[] = [
  {
    path: "overview",
    title: "Overview",
    icon: "overview",
    needs: "guest",
    component: OverviewPage,
  },
  { path: "drive", title: "Drive", icon: "drive", needs: "operator", component: DrivePage },
  { path: "io", title: "I/O", icon: "io", needs: "guest", component: IoPage },
  {
    path: "programs",
    title: "Programs",
    icon: "programs",
    needs: "guest",
    component: ProgramsPage,
  },
  {
    path: "services",
    title: "Services",
    icon: "services",
    needs: "guest",
    component: ServicesPage,
  },
  { path: "network", title: "Network", icon: "network", needs: "guest", component: NetworkPage },
  {
    path: "config",
    title: "Configuration",
    icon: "configuration",
    needs: "admin",
    component: ConfigurationPage,
  },
  { path: "about", title: "About", icon: "about", needs: "guest", component: AboutPage },
];
